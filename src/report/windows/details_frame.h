#pragma once

#include <QGroupBox>
#include <QRadioButton>

namespace halvorne {

/// Makes optDetails(0) "Full" and (1) "Partial" in the frame fraDetails, which two windows share.
void FillDetailsFrame(QGroupBox* frame, Qt::Orientation orientation, QRadioButton* (&options)[2]);

/// The option that the setup keeps. Raises 9 when it keeps none of the two.
QRadioButton* ChosenDetails(QRadioButton* const (&options)[2]);

/// Keeps the chosen option, 0 or 1, in the setup and its file.
void ChooseDetails(int index);

}  // namespace halvorne
