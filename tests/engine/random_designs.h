#pragma once

#include <cstdint>
#include <random>

namespace halvorne::testing {

/// What a random design may hold; 0 layers means one or two.
struct DesignKind {
  int layers = 0;
  bool losses = true;
  bool dispersion = false;
  bool complexLoads = false;
  bool network = true;
  bool areas = true;
  int maxPlates = 3;
};

/// Designs made at random, the same ones in every run.
class RandomDesigns {
 public:
  explicit RandomDesigns(std::uint32_t seed) : engine_(seed) {}

  /// Writes a whole design into `design`, 9 points from 0.35 to 1.65 of its half-wave frequency.
  void Make(const DesignKind& kind);

  double Uniform(double low, double high);
  int Pick(int low, int high);
  bool Chance() { return Pick(0, 1) == 1; }

 private:
  void Layer(int layer, bool losses);
  void Plates(const DesignKind& kind);
  void Loads(bool complex);
  void Network();
  void NetworkRow(int row, int code, double omega);

  std::mt19937 engine_;
};

}  // namespace halvorne::testing
