// What the tree of the Drawing Manager shows when it is filled: clients with their standards, and the
// standards that belong to nobody. Read from the database in one go.
#pragma once

#include <string>
#include <vector>

struct CTreeProject {
    int nId = 0;
    std::wstring strName;
    bool operator==(const CTreeProject&) const = default;
};

struct CTreeClient {
    std::wstring strName;
    std::vector<CTreeProject> aProjects;
};

struct CTreeContents {
    std::vector<CTreeClient> aClients;         // in the order of the client list
    std::vector<CTreeProject> aLooseProjects;  // listed by no client
};

// The clients and the live projects that the user may work in, for the discipline `nApp`. A project that two
// clients list goes to the first of them. A project that a client lists but that is not there, or that the
// user may not work in, is left out in silence; the client stays, if need be without a project. Missing files
// read as empty ones.
CTreeContents ReadTreeContents(int nApp);
