#include "report/windows/details_frame.h"

#include <QBoxLayout>

#include "persistence/setup_file.h"
#include "persistence/setup_state.h"
#include "platform/bounded.h"
#include "platform/numbers.h"

namespace halvorne {

void FillDetailsFrame(QGroupBox* frame, Qt::Orientation orientation, QRadioButton* (&options)[2]) {
  const char* const captions[] = {"Full", "Partial"};
  auto* const row = new QBoxLayout(
      orientation == Qt::Vertical ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight, frame);
  for (int i = 0; i < 2; ++i) {
    options[i] = new QRadioButton(QLatin1String(captions[i]));
    options[i]->setObjectName(QStringLiteral("optDetails(%1)").arg(i));
    row->addWidget(options[i]);
  }
}

QRadioButton* ChosenDetails(QRadioButton* const (&options)[2]) {
  return options[Bounded<int, 0, 1>::Offset(setup.ReportDetails - 1)];
}

void ChooseDetails(int index) {
  setup.ReportDetails = ToInt16(index + 1);
  writeHalvorneSetup();
}

}  // namespace halvorne
