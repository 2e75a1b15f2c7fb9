#include "batch/material_csv.h"

#include <vector>

#include "batch/near_names.h"
#include "batch/opened_store.h"
#include "batch/stops.h"
#include "platform/qt/text.h"

namespace halvorne::batch {
namespace {

std::string CsvCell(std::string text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) {
    return text;
  }
  for (std::size_t at = text.find('"'); at != std::string::npos; at = text.find('"', at + 2)) {
    text.insert(at, 1, '"');
  }
  return '"' + text + '"';
}

bool NameHolds(const std::vector<MaterialCell>& record, const std::string& piece) {
  return ToQString(CellText(record.front())).contains(ToQString(piece), Qt::CaseInsensitive);
}

void AppendTable(std::string& csv, const OpenedStore& store, const std::string& table,
                 const std::string& piece) {
  for (const std::vector<MaterialCell>& record : store.Read(table)) {
    if (!NameHolds(record, piece)) {
      continue;
    }
    csv += CsvCell(table);
    for (const MaterialCell& cell : record) {
      csv += ',' + CsvCell(CellText(cell));
    }
    csv += '\n';
  }
}

std::string Header(const OpenedStore& store) {
  std::string header = "Table";
  for (const MaterialColumn& column : store.Columns()) {
    header += ',' + std::string(column.name);
  }
  return header + '\n';
}

std::vector<const MaterialStore*> StoresOf(const std::string& topic) {
  if (topic == "piezo") {
    return {&kPiezoStore};
  }
  if (topic == "acoustic") {
    return {&kAcousticStore};
  }
  if (!topic.empty()) {
    throw WrongCommandLine("there are no materials '" + topic + "', only piezo and acoustic");
  }
  return {&kPiezoStore, &kAcousticStore};
}

}  // namespace

std::string MaterialCsv(const Request& request) {
  std::string csv;
  std::vector<std::string> known;
  bool found = false;
  for (const MaterialStore* const store : StoresOf(request.topic)) {
    const OpenedStore opened(*store);
    known.insert(known.end(), opened.Tables().begin(), opened.Tables().end());
    if (!request.table.empty() && !opened.Has(request.table)) {
      continue;
    }
    csv += found ? "\n" : "";
    csv += Header(opened);
    found = true;
    for (const std::string& table : opened.Tables()) {
      if (request.table.empty() || table == request.table) {
        AppendTable(csv, opened, table, request.find);
      }
    }
  }
  if (!found) {
    throw WrongCommandLine("--table: there is no table '" + request.table + "'" +
                           NearNamesHint(request.table, known));
  }
  return csv;
}

}  // namespace halvorne::batch
