#pragma once

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <algorithm>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "dialogs/number_box.h"
#include "dialogs/velocity_pair.h"
#include "platform/number_text.h"
#include "platform/numbers.h"
#include "platform/qt/modal_dialog.h"

namespace halvorne {

/// A field of a material and the box on the Material page in which it is edited.
template <class Material>
struct MaterialField {
  std::variant<std::string Material::*, double Material::*, float Material::*> member;
  const char* name;  ///< of the box
  const char* caption;
  const char* unit = "";        ///< right beside the box
  const char* pattern = "";     ///< of a number when the page is filled
  BoxBounds bounds = {0, "0"};  ///< of a number that is corrected by itself
  const char* unitName = "";    ///< of the unit's label
  QLineEdit* box = nullptr;

  /// Shows the field. A text that changes by it runs the box's change logic at once.
  void Show(const Material& material) const {
    std::visit(
        [&](auto field) {
          if constexpr (std::is_same_v<decltype(field), std::string Material::*>) {
            ShowText(box, material.*field);
          } else {
            SetBoxText(box, Format(material.*field, pattern));
          }
        },
        member);
  }

  /// Stores what the box shows.
  void Store(Material& material) const {
    std::visit(
        [&](auto field) {
          if constexpr (std::is_same_v<decltype(field), std::string Material::*>) {
            StoreText(box, material.*field);
          } else if constexpr (std::is_same_v<decltype(field), float Material::*>) {
            material.*field = ToSingle(BoxValue(box));
          } else {
            material.*field = BoxValue(box);
          }
        },
        member);
  }

  bool IsNumber() const { return !std::holds_alternative<std::string Material::*>(member); }
  bool Is(double Material::*wanted) const {
    const auto* const number = std::get_if<double Material::*>(&member);
    return number != nullptr && *number == wanted;
  }

  /// The field's own change logic: a number is corrected first.
  void Change(Material& material) const {
    if (IsNumber()) {
      CorrectedValue(box, bounds);
    }
    Store(material);
  }
};

/// The fields of a Material page in the order in which it is filled, with the velocities among
/// them, which take each other along, and the values that follow.
template <class Material>
class MaterialPage {
 public:
  /// @param module  window whose page it is
  MaterialPage(const char* module, std::vector<MaterialField<Material>> fields)
      : module_(module), fields_(std::move(fields)) {}

  const std::vector<MaterialField<Material>>& Fields() const { return fields_; }
  VelocityPair& Velocities() { return *velocities_; }

  /// Makes the boxes and lays them out, one a row: caption, box, unit.
  void LayOut(QGridLayout* grid) {
    int row = 0;
    for (MaterialField<Material>& field : fields_) {
      auto* const caption = new QLabel(QString::fromLatin1(field.caption));
      field.box = new QLineEdit;
      field.box->setObjectName(QString::fromLatin1(field.name));
      field.box->setAccessibleName(caption->text());
      grid->addWidget(caption, row, 0);
      if (field.IsNumber()) {
        grid->addWidget(AsNumberBox(field.box, kDigits), row, 1);
        grid->addWidget(MakeUnit(field), row, 2);
      } else {
        field.box->setMinimumWidth(field.box->fontMetrics().averageCharWidth() * kLetters);
        grid->addWidget(field.box, row, 1, 1, 2);
      }
      ++row;
    }
    grid->setColumnStretch(2, 1);
    velocities_.emplace(module_, BoxOf(&Material::Velocity), BoxOf(&Material::ShearVelocity),
                        BoxOf(&Material::Density));
  }

  /// Fills the page. Each text that changes runs its change logic at once, so that the record takes
  /// the rounded values, and a longitudinal velocity other than the one on show takes the shear
  /// velocity along before that is written.
  void Show(const Material& material) {
    for (const MaterialField<Material>& field : fields_) {
      field.Show(material);
    }
    velocities_->DerivedParas();
  }

  /// Stores what the page shows.
  void Store(Material& material) const {
    for (const MaterialField<Material>& field : fields_) {
      field.Store(material);
    }
  }

  /// Change logic of a field: corrects it, stores it and shows what follows.
  void Change(const MaterialField<Material>& field, Material& material) {
    if (field.Is(&Material::Velocity)) {
      velocities_->LongVel_Change(material.Velocity);
    } else if (field.Is(&Material::ShearVelocity)) {
      velocities_->ShearVel_Change(material.ShearVelocity);
    } else {
      field.Change(material);
    }
    if (field.Is(&Material::Density)) {
      velocities_->DerivedParas();
    }
  }

 private:
  static constexpr int kDigits = 12;   ///< room in a number's box
  static constexpr int kLetters = 36;  ///< room in a text's box

  static QLabel* MakeUnit(const MaterialField<Material>& field) {
    auto* const unit = new QLabel(QString::fromLatin1(field.unit));
    unit->setObjectName(QString::fromLatin1(field.unitName));
    return unit;
  }
  QLineEdit* BoxOf(double Material::*member) const {
    return std::ranges::find_if(fields_, [&](const auto& field) { return field.Is(member); })->box;
  }

  const char* module_;
  std::vector<MaterialField<Material>> fields_;
  std::optional<VelocityPair> velocities_;
};

}  // namespace halvorne
