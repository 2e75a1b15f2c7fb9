#pragma once

#include <map>
#include <string>

namespace halvorne {

/// Values of MakeDSN's request.
inline constexpr int kAddDataSource = 1;
inline constexpr int kRemoveDataSource = 3;

/// The connections to material databases that are registered. The database itself and its driver
/// are loaded when a store is first looked into (`StoreConnection`), which many sessions never do.
struct DataSources {
  std::map<std::string, std::string> Files;  ///< by the connection's name
};

extern DataSources dataSources;

/// Keeps the named connection to a material database in step with its file: adds one that is not
/// registered, removes one that is, and else does nothing, so that a registered one stays as it is
/// whatever its path. A missing file shows "Database file doesn't exist!".
///
/// @param name          name of the connection, "acoustic"
/// @param driver        driver of the database; there is but one
/// @param databasePath  file of the database
/// @param request       kAddDataSource or kRemoveDataSource
void MakeDSN(const std::string& name, const std::string& driver, const std::string& databasePath,
             int request);

/// Driver of the material databases.
inline constexpr const char* kDatabaseDriver = "QSQLITE";

}  // namespace halvorne
