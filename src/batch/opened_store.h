#pragma once

#include <string>
#include <vector>

#include "materials/material_store.h"

namespace halvorne::batch {

using MaterialRecords = std::vector<std::vector<MaterialCell>>;

/// A material database of the program's own folder, open while this lives.
class OpenedStore {
 public:
  /// Raises CommandFailed, as Read does, when the database cannot be read.
  explicit OpenedStore(const MaterialStore& store);
  ~OpenedStore();
  OpenedStore(const OpenedStore&) = delete;
  OpenedStore& operator=(const OpenedStore&) = delete;

  const std::vector<std::string>& Tables() const { return tables_; }
  bool Has(const std::string& table) const;
  std::span<const MaterialColumn> Columns() const { return store_.columns; }
  /// The records of a table, in the order of its rows.
  MaterialRecords Read(const std::string& table) const;

 private:
  [[noreturn]] void Complain(const Failure& failure) const;

  const MaterialStore& store_;
  QSqlDatabase connection_;
  std::vector<std::string> tables_;
};

/// A cell as text, numbers so that they read back as the same; empty for none.
std::string CellText(const MaterialCell& cell);

}  // namespace halvorne::batch
