#include "dialogs/velocity_pair.h"

#include <QScopedValueRollback>
#include <QVBoxLayout>
#include <cmath>

#include "dialogs/number_box.h"
#include "platform/number_text.h"
#include "platform/qt/modal_dialog.h"

namespace halvorne {
namespace {

constexpr const char* kVelocityPattern = "#0.0";

double PoissonsRatioOf(double squaredVelocityRatio) {
  return Quotient(1 - 2 * squaredVelocityRatio, 2 * (1 - squaredVelocityRatio));
}

QLabel* AddLabel(QGroupBox* frame, const char* name) {
  auto* const label = new QLabel;
  label->setObjectName(QString::fromLatin1(name));
  frame->layout()->addWidget(label);
  label->setMinimumWidth(
      label->fontMetrics().horizontalAdvance(QStringLiteral("Longit. impedance 1000.000 MRayls")));
  return label;
}

std::string ImpedanceText(double density, double velocity) {
  return Format(density * velocity / 1000000, "#0.000 MRayls");
}

}  // namespace

VelocityPair::VelocityPair(const char* module, QLineEdit* longVel, QLineEdit* shearVel,
                           QLineEdit* density)
    : module_(module), longVel_(longVel), shearVel_(shearVel), density_(density) {}

QGroupBox* VelocityPair::MakeDerivedFrame(const char* name) {
  auto* const frame = new QGroupBox(QStringLiteral("Derived parameters"));
  frame->setObjectName(QString::fromLatin1(name));
  new QVBoxLayout(frame);
  lblLongZ = AddLabel(frame, "lblLongZ");
  lblShearZ = AddLabel(frame, "lblShearZ");
  lblPoisson = AddLabel(frame, "lblPoisson");
  return frame;
}

void VelocityPair::StartFrom(double velocity, double shearVelocity) {
  nu = PoissonsRatioOf(std::pow(Quotient(shearVelocity, velocity), 2));
}

void VelocityPair::LongVel_Change(double& stored) {
  const double velocity = CorrectedValue(longVel_, {1, "1.0"});
  const double shear = velocity * std::sqrt(Quotient(1 - 2 * nu, 2 * (1 - nu)));
  SetBoxText(shearVel_, Format(shear, kVelocityPattern));
  stored = velocity;
  DerivedParas();
}

void VelocityPair::ShearVel_Change(double& stored) {
  // What a correction writes runs this again, and is corrected no more: from numbers that have no
  // place for a tenth it would never end.
  if (!correctingShear_) {
    const QScopedValueRollback<bool> correcting(correctingShear_, true);
    CorrectShearVel();
  }
  stored = BoxValue(shearVel_);
  DerivedParas();
}

void VelocityPair::CorrectShearVel() {
  CorrectedValue(shearVel_, {0, "0.0"});
  const double highest = std::sqrt(2.0) * 0.5 * BoxValue(longVel_);
  if (highest < BoxValue(shearVel_)) {
    CorrectToHighest(shearVel_, Format(highest, kVelocityPattern));
  }
  if (highest < BoxValue(shearVel_)) {  // the text was rounded up
    CorrectToHighest(shearVel_, NumberText(BoxValue(shearVel_) - 0.1));
  }
}

void VelocityPair::DerivedParas() try {
  const double density = BoxValue(density_);
  const double velocity = BoxValue(longVel_);
  const double shear = BoxValue(shearVel_);
  nu = 0;
  if (velocity > 0) {
    const double ratio = std::pow(shear / velocity, 2);
    nu = PoissonsRatioOf(ratio >= 1 ? 0.99999999999 : ratio);
  }
  lblLongZ->setText(ToQString("Longit. impedance " + ImpedanceText(density, velocity)));
  lblShearZ->setText(ToQString("Shear impedance " + ImpedanceText(density, shear)));
  lblPoisson->setText(ToQString("Poisson's ratio " + Format(nu, "0.000")));
} catch (...) {
  ReportFailure("DerivedParas", module_);
}

}  // namespace halvorne
