#pragma once

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace halvorne {

/// Lays out a row "caption, number, unit" of a grid: numbers end below one another and each has
/// its unit right beside it. The caption becomes the box's accessible name.
/// @param unit  null when the number has none
void AddEntryRow(QGridLayout* grid, int row, QLabel* caption, QLineEdit* box, QLabel* unit);

/// Lets a control's place stay empty while it is hidden.
void KeepPlaceWhenHidden(QWidget* control);

/// The row below a dialog's contents: its default button and the one that closes it.
QHBoxLayout* ClosingRow(QPushButton* ok, QPushButton* cancel);

}  // namespace halvorne
