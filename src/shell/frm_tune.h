#pragma once

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QTimer>
#include <array>
#include <memory>
#include <vector>

#include "platform/qt/eliding_label.h"
#include "quantities/tuning.h"

namespace halvorne {

/// "Tune": numbers of the design, each with a slider, which the plot in the main window follows
/// while it is being moved. Not modal.
///
/// Keep leaves the numbers in the design; Put Back makes the design what it was, and so does
/// closing the window. What is moved faster than the plot can follow is shown by its newest value.
class frmTune final : public QDialog {
 public:
  static constexpr int kRows = 8;

  explicit frmTune(QWidget* parent);
  ~frmTune() override;
  frmTune(const frmTune&) = delete;
  frmTune& operator=(const frmTune&) = delete;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  /// The controls of a number that is tuned.
  struct Row {
    QComboBox* number;
    QSlider* slider;
    QLineEdit *value, *lowest, *highest;
    int chosen = -1;                              ///< index of the number, -1 for none
    double start = 0, now = 0, from = 0, to = 0;  ///< in the unit of the number's words
  };

  void MakeRow(int index);
  void Form_Load();
  void cboNumber_Click(int index);
  void sldNumber_Change(int index);
  void txtNumber_Change(int index);
  void txtNumber_LostFocus(int index);
  void Range_Change(int index);
  void cmdKeep_Click();
  void cmdPutBack_Click();

  const TunableNumber* NumberOf(const Row& row) const;
  /// Puts a row on a number, with the range half of it either side; -1 for none.
  void Choose(Row& row, int number);
  void Give(Row& row, double value);
  void PlaceSlider(Row& row);
  void ShowNow();
  template <class Procedure>
  void Run(const char* name, const Procedure& procedure);

  std::vector<TunableNumber> numbers_;
  std::unique_ptr<Tuning> tuning_;
  std::array<Row, kRows> rows_{};
  QTimer due_;            ///< fires when nothing else waits, with the newest values
  bool placing_ = false;  ///< the program moves a slider or writes a box
  ElidingLabel* lblTune;
  QPushButton *cmdKeep, *cmdPutBack;
};

}  // namespace halvorne
