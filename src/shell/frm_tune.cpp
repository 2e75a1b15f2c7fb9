#include "shell/frm_tune.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScopedValueRollback>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "engine/design_model.h"
#include "platform/failure.h"
#include "platform/number_text.h"
#include "platform/qt/message_boxes.h"
#include "platform/qt/modal_dialog.h"
#include "platform/qt/text.h"

namespace halvorne {
namespace {

constexpr int kSteps = 1000;

/// A number to six digits, of which the last is below what a step of a slider changes.
double SixDigits(double value) {
  if (value == 0 || !std::isfinite(value)) {
    return value;
  }
  const double digits = 5 - std::floor(std::log10(std::fabs(value)));
  const double scale = std::pow(10, std::fabs(digits));
  const double rounded =
      digits > 0 ? std::round(value * scale) / scale : std::round(value / scale) * scale;
  return std::isfinite(rounded) ? rounded : value;
}

QString IndexedName(const char* name, int index) {
  return QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(index);
}

}  // namespace

frmTune::frmTune(QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("frmTune"));
  setWindowTitle(QStringLiteral("Tune"));
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  auto* const outer = new QVBoxLayout(this);
  auto* const grid = new QGridLayout;
  outer->addLayout(grid);
  int column = 0;
  for (const char* caption : {"Number", "From", "", "To", "Value"}) {
    grid->addWidget(new QLabel(QLatin1String(caption)), 0, column++);
  }
  for (int index = 0; index < kRows; ++index) {
    MakeRow(index);
  }
  grid->setColumnStretch(2, 1);
  lblTune = new ElidingLabel(Qt::ElideRight);
  lblTune->setObjectName(QStringLiteral("lblTune"));
  outer->addWidget(lblTune);
  auto* const closing = new QHBoxLayout;
  cmdKeep = new QPushButton(QStringLiteral("&Keep"));
  cmdKeep->setObjectName(QStringLiteral("cmdKeep"));
  cmdKeep->setToolTip(QStringLiteral("Leave the numbers in the design and close"));
  cmdPutBack = new QPushButton(QStringLiteral("&Put Back"));
  cmdPutBack->setObjectName(QStringLiteral("cmdPutBack"));
  cmdPutBack->setToolTip(QStringLiteral("Make all numbers what they were"));
  for (QPushButton* button : {cmdKeep, cmdPutBack}) {
    button->setAutoDefault(false);  // Return in a box ends the typing there
  }
  closing->addStretch();
  closing->addWidget(cmdKeep);
  closing->addWidget(cmdPutBack);
  outer->addLayout(closing);
  connect(cmdKeep, &QPushButton::clicked, this, [this] { cmdKeep_Click(); });
  connect(cmdPutBack, &QPushButton::clicked, this, [this] { cmdPutBack_Click(); });
  due_.setSingleShot(true);
  due_.setInterval(0);
  connect(&due_, &QTimer::timeout, this, [this] { ShowNow(); });
  Form_Load();
}

frmTune::~frmTune() = default;

void frmTune::MakeRow(int index) {
  auto* const grid = static_cast<QGridLayout*>(layout()->itemAt(0)->layout());
  Row& row = rows_.at(static_cast<std::size_t>(index));
  const QString which = QString::number(index + 1);
  const auto box = [&](const char* name, const QString& accessible, int column) {
    auto* const made = new QLineEdit;
    made->setObjectName(IndexedName(name, index));
    made->setAccessibleName(accessible + which);
    made->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    made->setFixedWidth(made->fontMetrics().horizontalAdvance(QStringLiteral("-0.00000000")) + 16);
    grid->addWidget(made, index + 1, column);
    return made;
  };
  row.number = new QComboBox;
  row.number->setObjectName(IndexedName("cboNumber", index));
  row.number->setAccessibleName(QStringLiteral("Number ") + which);
  row.number->setMaxVisibleItems(20);
  row.number->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  row.number->setMinimumContentsLength(38);
  grid->addWidget(row.number, index + 1, 0);
  row.lowest = box("txtFrom", QStringLiteral("Lowest value of number "), 1);
  row.slider = new QSlider(Qt::Horizontal);
  row.slider->setObjectName(IndexedName("sldNumber", index));
  row.slider->setAccessibleName(QStringLiteral("Slider of number ") + which);
  row.slider->setRange(0, kSteps);
  row.slider->setPageStep(kSteps / 20);
  row.slider->setMinimumWidth(180);
  grid->addWidget(row.slider, index + 1, 2);
  row.highest = box("txtTo", QStringLiteral("Highest value of number "), 3);
  row.value = box("txtNumber", QStringLiteral("Value of number "), 4);
  connect(row.number, &QComboBox::currentIndexChanged, this,
          [this, index] { cboNumber_Click(index); });
  connect(row.slider, &QSlider::valueChanged, this, [this, index] { sldNumber_Change(index); });
  connect(row.value, &QLineEdit::textChanged, this, [this, index] { txtNumber_Change(index); });
  connect(row.value, &QLineEdit::editingFinished, this,
          [this, index] { txtNumber_LostFocus(index); });
  for (QLineEdit* bound : {row.lowest, row.highest}) {
    connect(bound, &QLineEdit::textChanged, this, [this, index] { Range_Change(index); });
  }
}

/// Each event procedure reports its own failures and is a command of the user.
template <class Procedure>
void frmTune::Run(const char* name, const Procedure& procedure) {
  const Command command;
  try {
    procedure();
  } catch (...) {
    ReportFailure(name, "frmTune");
  }
}

void frmTune::Form_Load() {
  Run("Form_Load", [this] {
    numbers_ = TunableNumbers();
    tuning_ = std::make_unique<Tuning>();
    const QScopedValueRollback<bool> placing(placing_, true);
    for (Row& row : rows_) {
      row.number->addItem(QStringLiteral("(none)"));
      for (const TunableNumber& number : numbers_) {
        row.number->addItem(ToQString(number.words));
      }
      Choose(row, -1);
    }
    // The thickness that is tried out most: of the plate next to the layers, else of the layer.
    const auto plate = std::ranges::find(numbers_, "FrontThick(1)", &TunableNumber::field);
    const auto first = plate != numbers_.end() ? static_cast<int>(plate - numbers_.begin()) : 0;
    rows_[0].number->setCurrentIndex(first + 1);
    Choose(rows_[0], first);
    rows_[0].slider->setFocus();
  });
}

const TunableNumber* frmTune::NumberOf(const Row& row) const {
  return row.chosen < 0 ? nullptr : &numbers_.at(static_cast<std::size_t>(row.chosen));
}

void frmTune::Choose(Row& row, int number) {
  const QScopedValueRollback<bool> placing(placing_, true);
  row.chosen = number;
  const TunableNumber* const tuned = NumberOf(row);
  for (QWidget* control :
       std::initializer_list<QWidget*>{row.slider, row.value, row.lowest, row.highest}) {
    control->setEnabled(tuned != nullptr);
    control->setAccessibleDescription(tuned != nullptr ? ToQString(tuned->words) : QString());
  }
  if (tuned == nullptr) {
    for (QLineEdit* box : {row.value, row.lowest, row.highest}) {
      box->clear();
    }
    row.slider->setValue(0);
    return;
  }
  row.start = row.now = TunedValue(*tuned);
  const double half = row.start == 0 ? 0.5 : std::fabs(row.start) / 2;
  row.from = SixDigits(WithinBounds(*tuned, row.start - half));
  row.to = SixDigits(WithinBounds(*tuned, row.start + half));
  SetBoxText(row.lowest, NumberText(row.from));
  SetBoxText(row.highest, NumberText(row.to));
  SetBoxText(row.value, NumberText(SixDigits(row.now)));
  PlaceSlider(row);
}

void frmTune::PlaceSlider(Row& row) {
  const QScopedValueRollback<bool> placing(placing_, true);
  const double span = row.to - row.from;
  const double share = span > 0 ? std::clamp((row.now - row.from) / span, 0.0, 1.0) : 0;
  row.slider->setValue(static_cast<int>(std::lround(share * kSteps)));
}

void frmTune::Give(Row& row, double value) {
  row.now = value;
  tuning_->Set(*NumberOf(row), value);
  due_.start();
}

void frmTune::ShowNow() {
  Run("ShowNow", [this] {
    due_.stop();
    if (tuning_ != nullptr) {
      lblTune->setText(ToQString(tuning_->Show()));
    }
  });
}

void frmTune::cboNumber_Click(int index) {
  if (placing_) {
    return;
  }
  Run("cboNumber_Click", [this, index] {
    Row& row = rows_.at(static_cast<std::size_t>(index));
    if (const TunableNumber* const left = NumberOf(row)) {
      tuning_->Restore(*left);
      ShowNow();
    }
    const int number = row.number->currentIndex() - 1;
    for (Row& other : rows_) {
      if (&other != &row && number >= 0 && other.chosen == number) {
        // One number has one slider: it goes to the row where it was asked for.
        tuning_->Restore(numbers_.at(static_cast<std::size_t>(number)));
        ShowNow();
        const QScopedValueRollback<bool> placing(placing_, true);
        other.number->setCurrentIndex(0);
        Choose(other, -1);
      }
    }
    Choose(row, number);
  });
}

void frmTune::sldNumber_Change(int index) {
  if (placing_) {
    return;
  }
  Run("sldNumber_Change", [this, index] {
    Row& row = rows_.at(static_cast<std::size_t>(index));
    const double share = static_cast<double>(row.slider->value()) / kSteps;
    const double value = SixDigits(row.from + (row.to - row.from) * share);
    const QScopedValueRollback<bool> placing(placing_, true);
    SetBoxText(row.value, NumberText(value));
    Give(row, value);
  });
}

void frmTune::txtNumber_Change(int index) {
  if (placing_) {
    return;
  }
  Run("txtNumber_Change", [this, index] {
    Row& row = rows_.at(static_cast<std::size_t>(index));
    Give(row, WithinBounds(*NumberOf(row), BoxValue(row.value)));
    PlaceSlider(row);
  });
}

void frmTune::txtNumber_LostFocus(int index) {
  Run("txtNumber_LostFocus", [this, index] {
    Row& row = rows_.at(static_cast<std::size_t>(index));
    if (NumberOf(row) != nullptr) {
      const QScopedValueRollback<bool> placing(placing_, true);
      SetBoxText(row.value, NumberText(SixDigits(row.now)));
    }
  });
}

/// The two ends may be typed in either order.
void frmTune::Range_Change(int index) {
  if (placing_) {
    return;
  }
  Run("Range_Change", [this, index] {
    Row& row = rows_.at(static_cast<std::size_t>(index));
    const TunableNumber& number = *NumberOf(row);
    const double one = WithinBounds(number, BoxValue(row.lowest));
    const double other = WithinBounds(number, BoxValue(row.highest));
    row.from = std::min(one, other);
    row.to = std::max(one, other);
    PlaceSlider(row);
  });
}

void frmTune::cmdKeep_Click() {
  Run("cmdKeep_Click", [this] {
    if (due_.isActive()) {
      ShowNow();  // the newest value counts, seen or not
    }
    tuning_->Keep();
    tuning_.reset();
    close();
  });
}

void frmTune::cmdPutBack_Click() {
  Run("cmdPutBack_Click", [this] {
    due_.stop();
    tuning_->PutBack();
    tuning_ = std::make_unique<Tuning>();
    lblTune->clear();
    for (Row& row : rows_) {
      if (row.chosen < 0) {
        continue;
      }
      const QScopedValueRollback<bool> placing(placing_, true);
      const double from = row.from;
      const double to = row.to;
      const QString lowest = row.lowest->text();
      const QString highest = row.highest->text();
      Choose(row, row.chosen);
      row.from = from;
      row.to = to;
      row.lowest->setText(lowest);
      row.highest->setText(highest);
      PlaceSlider(row);
    }
  });
}

void frmTune::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Cancel)) {
    close();
  } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    if (auto* const button = qobject_cast<QPushButton*>(focusWidget())) {
      button->click();
    }
  } else {
    QDialog::keyPressEvent(event);
  }
}

void frmTune::closeEvent(QCloseEvent* event) {
  Run("Form_Unload", [this] {
    due_.stop();
    tuning_.reset();  // puts back what was not kept
  });
  QDialog::closeEvent(event);
  deleteLater();
}

}  // namespace halvorne
