// The clients of the database and their projects: ClientDatafile.ini in the data files folder, which the
// Standards Manager writes and this module only reads, anew on every call. A missing or unreadable file reads
// as an empty one.
#pragma once

#include <string>
#include <vector>

// "KV2D_CLIENT_<id>"; empty for an id below 1.
std::wstring ClientKeyFromId(int nClientId);

// The id behind "KV2D_CLIENT_" anywhere in the key, in any letter case; 0 if it is not there.
// "old kv2d_client_7x" gives 7.
int ClientIdFromKey(const std::wstring& strKey);

// All clients in the order of the file. A key that holds no id gives the id 0; its row is kept. Both lists
// are emptied first. False only if there is no data files folder.
bool GetClientList(std::vector<int>& anIds, std::vector<std::wstring>& astrNames);

// The projects of the section "ProjectList - <id>", in the order of the file, whether or not the client
// itself is listed. A key that is no number gives 0. False, with an empty list, for an id below 1 or without
// a data files folder.
bool GetClientProjects(int nClientId, std::vector<int>& anProjectIds);

// The projects of many clients with one reading of the file, a list for each client as GetClientProjects
// gives it; an id below 1 has an empty list. False, with empty lists, without a data files folder.
bool GetProjectsOfClients(const std::vector<int>& anClientIds, std::vector<std::vector<int>>& aanProjectIds);

// The first client, in the order of the file, whose section lists the project. `nClientId` 0 and an empty
// name if there is none, which is no failure. False only if there is no data files folder.
bool GetClientOfProject(int nProjectId, int& nClientId, std::wstring& strClientName);
