#pragma once

#include <QBoxLayout>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <array>
#include <span>

#include "platform/qt/modal_dialog.h"

// What the two large dialogs look like: a row of three page buttons, one page below it, the closing
// buttons at the bottom.

namespace halvorne {

/// Page button 0 "Thickness", 1 "Material" or 2 "Dispersion", with the Alt key and its first
/// letter.
QPushButton* MakePageButton(int index);

/// A page whose controls lie in one titled group.
struct LargePage {
  QFrame* frame;
  QVBoxLayout* column;
};
LargePage MakeLargePage(const char* name, const QString& title);

/// Lays the dialog out and makes the pages known to `pages`.
void LayOutLargeDialog(QDialog* dialog, std::span<QPushButton* const, 3> buttons,
                       const std::array<QFrame*, 3>& frames, FramePages& pages, QPushButton* ok,
                       QPushButton* cancel);

/// Lays a Material page out: the choice of the layer above its fields, what follows from them and
/// the way to the browser beside.
void LayOutMaterialPage(QVBoxLayout* page, QWidget* layers, QGridLayout* fields, QWidget* derived,
                        QPushButton* browser);

/// A frame with two options in a row.
QGroupBox* OptionsFrame(const QString& caption, QRadioButton* const (&options)[2]);

/// Lets the Tab key lead through the controls in that order.
void LeadTabThrough(std::span<QWidget* const> order);

}  // namespace halvorne
