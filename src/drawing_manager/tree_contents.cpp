#include "drawing_manager/tree_contents.h"

#include <deque>
#include <unordered_map>

#include "database/client_list.h"
#include "database/project_list.h"
#include "database/user_access.h"

namespace {

std::vector<CTreeProject> ReadVisibleProjects(int nApp) {
    std::vector<int> anIds;
    std::vector<std::wstring> astrNames;
    GetProjectList(anIds, astrNames, false);
    std::vector<CTreeProject> aProjects;
    for (size_t i = 0; i < anIds.size(); ++i) {
        if (CheckUserAccess(anIds[i], nApp, false)) aProjects.push_back({anIds[i], astrNames[i]});
    }
    return aProjects;
}

}  // namespace

CTreeContents ReadTreeContents(int nApp) {
    CTreeContents contents;
    std::vector<int> anClientIds;
    std::vector<std::wstring> astrClientNames;
    GetClientList(anClientIds, astrClientNames);
    std::vector<std::vector<int>> aanListed;
    GetProjectsOfClients(anClientIds, aanListed);

    const std::vector<CTreeProject> aProjects = ReadVisibleProjects(nApp);
    std::vector<bool> abTaken(aProjects.size(), false);
    // Rows without a proper key all have the id 0, so an id may stand for several projects.
    std::unordered_map<int, std::deque<size_t>> placesOfId;
    for (size_t i = 0; i < aProjects.size(); ++i)
        placesOfId[aProjects[i].nId].push_back(i);

    for (size_t nClient = 0; nClient < anClientIds.size(); ++nClient) {
        CTreeClient& client = contents.aClients.emplace_back();
        client.strName = astrClientNames[nClient];
        for (int nId : aanListed[nClient]) {
            const auto found = placesOfId.find(nId);
            if (found == placesOfId.end() || found->second.empty()) continue;
            const size_t nPlace = found->second.front();
            found->second.pop_front();
            client.aProjects.push_back(aProjects[nPlace]);
            abTaken[nPlace] = true;
        }
    }
    for (size_t i = 0; i < aProjects.size(); ++i) {
        if (!abTaken[i]) contents.aLooseProjects.push_back(aProjects[i]);
    }
    return contents;
}
