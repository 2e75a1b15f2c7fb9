#include "shell/dark_palette.h"

namespace halvorne::testing {

QPalette DarkPalette() {
  QPalette dark;
  const QColor ground(0x2a, 0x2c, 0x30);
  const QColor ink(0xe8, 0xe8, 0xe8);
  for (const auto role : {QPalette::Window, QPalette::Button, QPalette::ToolTipBase}) {
    dark.setColor(role, ground);
  }
  dark.setColor(QPalette::Base, QColor(0x1e, 0x1f, 0x22));
  dark.setColor(QPalette::AlternateBase, ground);
  for (const auto role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
    dark.setColor(role, ink);
    dark.setColor(QPalette::Disabled, role, QColor(0x80, 0x80, 0x80));
  }
  dark.setColor(QPalette::Light, QColor(0x50, 0x52, 0x56));
  dark.setColor(QPalette::Midlight, QColor(0x3c, 0x3e, 0x42));
  dark.setColor(QPalette::Mid, QColor(0x20, 0x21, 0x24));
  dark.setColor(QPalette::Dark, QColor(0x16, 0x17, 0x19));
  dark.setColor(QPalette::Shadow, Qt::black);
  dark.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xb5));
  dark.setColor(QPalette::HighlightedText, Qt::white);
  dark.setColor(QPalette::PlaceholderText, QColor(0x90, 0x90, 0x90));
  return dark;
}

}  // namespace halvorne::testing
