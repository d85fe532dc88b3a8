// Every operation of the database that touches a file or the registry, for the fault tests.
#pragma once

#include <functional>
#include <ostream>
#include <set>
#include <string>
#include <utility>
#include <vector>

// Contents by the names of GetAllFiles.
using Allowed = std::vector<std::pair<std::string, std::string>>;

struct COperation {
    const char* pszName;
    std::function<int()> run;
    std::set<int> codes;  // the documented ones
    // Contents that a file may also have when a call has failed.
    Allowed alsoAllowed = {};
    // Tells the contents of a file where the operation went on with one that was cut off.
    std::function<bool(const std::string& strFile, const std::string& strContent)> goesOnFromPart = {};
};

inline void PrintTo(const COperation& operation, std::ostream* pStream) {
    *pStream << operation.pszName;
}

// What they are run on is the database of ArrangeDatabase.
std::vector<COperation> GetAllOperations();
