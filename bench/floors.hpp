// The least that some calls could cost, measured beside them: each floor goes through
// catalogue::callExport() as the call does, and opens the same files.
#pragma once

#include <cstdint>

namespace bench {

inline constexpr const char *kStore = "/userconfig/nexumd_cfgfile";
inline constexpr const char *kStoreCopy = "/userconfig/nexumd_cfgfile.tmp";
inline constexpr const char *kStoreItem = "if3_channel";

void readStore();
void replaceInStore();
void blankInStore();

/// cJSON's own share of the mesh's topology.
void parseTopology(const char *text);

/// The list of WAN connections with its work areas, and a record of so many connections.
void clearForConnections(uint32_t connections);

}  // namespace bench
