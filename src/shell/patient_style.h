#pragma once

#include <QProxyStyle>

namespace halvorne {

/// The style of the desktop, which reads no picture before it is needed. For a picture whose kind
/// is not told the toolkit loads every reader of pictures that there is, and two stood in the way
/// of each start: the arrow of a menu bar that is too narrow for its menus, which is now read when
/// one is, and the frame of a group in the toolkit's own style, which is now drawn.
class PatientStyle final : public QProxyStyle {
 public:
  QIcon standardIcon(StandardPixmap which, const QStyleOption* option,
                     const QWidget* widget) const override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};

}  // namespace halvorne
