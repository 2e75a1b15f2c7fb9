#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

namespace halvorne {

/// Longitudinal and shear velocity of a material, its density, and the values that follow from
/// them, as the Material pages of both large dialogs have them.
///
/// A change of the longitudinal velocity keeps Poisson's ratio and moves the shear velocity. The
/// shear velocity never makes Poisson's ratio negative.
class VelocityPair {
 public:
  /// @param module      window whose procedures these are
  /// @param longVel     box of the longitudinal velocity, m/s
  /// @param shearVel    box of the shear velocity, m/s
  /// @param density     box of the density, kg/m^3
  VelocityPair(const char* module, QLineEdit* longVel, QLineEdit* shearVel, QLineEdit* density);

  /// The frame "Derived parameters", named `name`, with its three labels.
  QGroupBox* MakeDerivedFrame(const char* name);

  /// Takes Poisson's ratio from a material's velocities, m/s. Raises 11 when the longitudinal one
  /// is 0 or equals the other.
  void StartFrom(double velocity, double shearVelocity);
  double PoissonsRatio() const { return nu; }

  /// Change logic of the two boxes; each stores its corrected value, m/s.
  void LongVel_Change(double& stored);
  void ShearVel_Change(double& stored);
  /// Shows the values that follow from what the boxes say.
  void DerivedParas();

 private:
  /// Keeps the shear velocity from 0 to the longitudinal one by the root of 2.
  void CorrectShearVel();

  const char* module_;
  QLineEdit *longVel_, *shearVel_, *density_;
  QLabel *lblLongZ = nullptr, *lblShearZ = nullptr, *lblPoisson = nullptr;
  double nu = 0;  ///< Poisson's ratio on show
  bool correctingShear_ = false;
};

}  // namespace halvorne
