#include "batch/material_option.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "batch/near_names.h"
#include "batch/opened_store.h"
#include "batch/stops.h"
#include "engine/design_model.h"
#include "quantities/derived_values.h"

namespace halvorne::batch {
namespace {

struct TargetName {
  const char* name;
  MaterialChoice::Target target;
  int last;
};
constexpr std::array<TargetName, 3> kTargets{{
    {"PZMatl", MaterialChoice::Target::kPiezo, kMaxPiezo},
    {"FaceMatl", MaterialChoice::Target::kFace, kMaxPlates},
    {"BackMatl", MaterialChoice::Target::kBack, kMaxPlates},
}};

std::vector<std::string> NamesOf(const MaterialRecords& records) {
  std::vector<std::string> names;
  for (const std::vector<MaterialCell>& record : records) {
    names.push_back(CellText(record.front()));
  }
  return names;
}

/// The record of TABLE/NAME. Either name may hold a slash, so each one is tried.
std::vector<MaterialCell> FindRecord(const OpenedStore& store, const std::string& written) {
  std::string complaint;
  for (std::size_t slash = written.find('/'); slash != std::string::npos;
       slash = written.find('/', slash + 1)) {
    const std::string table = written.substr(0, slash);
    const std::string name = written.substr(slash + 1);
    if (!store.Has(table)) {
      continue;
    }
    const MaterialRecords records = store.Read(table);
    const std::vector<std::string> names = NamesOf(records);
    const auto found = std::ranges::find(names, name);
    if (found != names.end()) {
      return records[static_cast<std::size_t>(found - names.begin())];
    }
    complaint = "the table '";
    complaint += table;
    complaint += "' has no material '";
    complaint += name;
    complaint += "'";
    complaint += NearNamesHint(name, names);
  }
  if (complaint.empty()) {
    const std::string table = written.substr(0, written.find('/'));
    complaint = "there is no table '" + table + "'" + NearNamesHint(table, store.Tables());
  }
  throw WrongCommandLine(complaint);
}

void Apply(const MaterialChoice& choice) {
  switch (choice.target) {
    case MaterialChoice::Target::kPiezo: {
      PiezoMaterial material;
      TakePiezoRecord(choice.cells, material);
      StorePiezoMaterial(choice.index, material);
      break;
    }
    case MaterialChoice::Target::kFace:
      TakeAcousticRecord(choice.cells, design.FaceMatl(choice.index));
      break;
    case MaterialChoice::Target::kBack:
      TakeAcousticRecord(choice.cells, design.BackMatl(choice.index));
      break;
  }
}

}  // namespace

MaterialChoice ReadMaterialChoice(const std::string& text) {
  const std::size_t equals = text.find('=');
  const std::string complaint = "--material " + text + ": ";
  if (equals == std::string::npos || text.find('/', equals) == std::string::npos) {
    throw WrongCommandLine(complaint + "it is not of the form PZMatl(1)=TABLE/NAME");
  }
  const std::string place = text.substr(0, equals);
  for (const TargetName& target : kTargets) {
    const std::string begin = std::string(target.name) + "(";
    if (!place.starts_with(begin) || !place.ends_with(')')) {
      continue;
    }
    int index = 0;
    const char* const first = place.data() + begin.size();
    const char* const last = place.data() + place.size() - 1;
    const auto [end, error] = std::from_chars(first, last, index);
    if (error != std::errc() || end != last || index < 1 || index > target.last) {
      throw WrongCommandLine(complaint + "the layers are called " + target.name + "(1 to " +
                             std::to_string(target.last) + ")");
    }
    return {target.target, index, text, text.substr(equals + 1), {}};
  }
  throw WrongCommandLine(complaint + "materials have PZMatl(1 to 2), FaceMatl(1 to 10) and " +
                         "BackMatl(1 to 10)");
}

void FindMaterials(std::vector<MaterialChoice>& choices) {
  for (MaterialChoice& choice : choices) {
    const bool piezo = choice.target == MaterialChoice::Target::kPiezo;
    try {
      choice.cells = FindRecord(OpenedStore(piezo ? kPiezoStore : kAcousticStore), choice.name);
    } catch (const WrongCommandLine& wrong) {
      throw WrongCommandLine("--material " + choice.words + ": " + wrong.what());
    }
  }
}

void ApplyMaterials(const std::vector<MaterialChoice>& choices) {
  bool piezo = false;
  for (const MaterialChoice& choice : choices) {
    try {
      Apply(choice);
    } catch (const Failure& failure) {
      throw CommandFailed("--material " + choice.words +
                          ": the record cannot be used: " + failure.Description());
    }
    piezo = piezo || choice.target == MaterialChoice::Target::kPiezo;
  }
  if (piezo) {
    MakeDerivedValues(kPiezo);
  }
}

}  // namespace halvorne::batch
