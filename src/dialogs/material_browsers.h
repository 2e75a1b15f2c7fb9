#pragma once

#include <QWidget>
#include <functional>

namespace halvorne {

/// The way from the two large dialogs to the material browsers, which stand in a higher room: each
/// shows its browser modally in front of `owner` and returns when the chain of windows that follows
/// has closed. One that is not set has no browser, and the button that leads to it is disabled.
struct MaterialBrowsers {
  using Show = std::function<void(QWidget* owner)>;
  Show ShowPiezoDB;
  Show ShowAcousticDB;
};

/// The browsers in force, set once by the room that has them.
MaterialBrowsers& materialBrowsers();

}  // namespace halvorne
