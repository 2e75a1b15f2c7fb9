#pragma once

#include <string>
#include <vector>

namespace halvorne {

/// What a part of the stack's picture is.
enum class StackKind {
  kRearLoad,
  kBackPlate,
  kPiezo,
  kFacePlate,
  kFrontLoad,
  kElement,  ///< of the electrical network
  kPort,     ///< electrical terminations
};

/// A part of the transducer as it is drawn and told.
struct StackPart {
  StackKind kind = StackKind::kRearLoad;
  /// Plate or layer from 1, row of the network from 1; 0 for the wires of an empty network.
  int number = 0;
  int code = 0;          ///< of a network's element
  int polarity = 0;      ///< of a piezoelectric layer, +1 or -1
  double thickness = 0;  ///< m
  double impedance = 0;  ///< Rayl, of the material without its area
  /// What is written beside it, from the longest text to the shortest.
  std::vector<std::string> labels;
  std::string words;  ///< all that is told of it, in lines that end in \n
  bool operator==(const StackPart&) const = default;
};

/// The transducer in order: rear load, back plates from the outermost, piezoelectric layers, face
/// plates, front load; then the network from the transducer to the electrical port, and the port.
struct Stack {
  std::vector<StackPart> parts;
  bool parallel = false;  ///< two layers are connected in parallel
  bool operator==(const Stack&) const = default;
};

/// True for what sound passes through: loads, plates and layers.
bool IsAcoustic(StackKind kind);

/// The stack of the design. Thicknesses are told in millimetres and in wavelengths at the design
/// frequency Fd, as the dialogs have them; at the middle of the swept band where there is no Fd.
Stack StackOfDesign();

}  // namespace halvorne
