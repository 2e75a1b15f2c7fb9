#include <QAbstractItemView>
#include <QComboBox>
#include <QTest>

#include "plot/plot_select.h"
#include "plot/plot_state.h"
#include "shell/window_test.h"

// The list of data forms: what a person chooses in it, and how it goes with the picture when a
// waveform is refused.

namespace halvorne::testing {
namespace {

class FormListTest : public WindowTest {
 protected:
  FormListTest() { StartWithDesign(); }

  QComboBox* List() const { return Find<QComboBox>("PlotType"); }

  /// Opens the list with the mouse and clicks an entry.
  void ChooseInOpenList(int index) {
    QTest::mouseClick(List(), Qt::LeftButton);
    QAbstractItemView* const entries = List()->view();
    ASSERT_TRUE(QTest::qWaitFor([&] { return entries->isVisible(); }));
    const QModelIndex entry = entries->model()->index(index, 0);
    // Releases right after the opening belong to it.
    QTest::qWait(QApplication::doubleClickInterval() + 100);
    QTest::mouseClick(entries->viewport(), Qt::LeftButton, {}, entries->visualRect(entry).center());
    EXPECT_FALSE(entries->isVisible());
  }

  std::filesystem::path SetupFile() const { return Folder() / "HALVORNESETUP"; }
  bool WroteSetupFile() {
    const bool wrote = std::filesystem::exists(SetupFile());
    std::filesystem::remove(SetupFile());
    return wrote;
  }

  /// A sample rate below twice the upper frequency.
  static void Undersample() { design.SampleRateHz = 1.9 * design.FreqStop; }

  void ExpectWarning(QMessageBox::StandardButton press) {
    script.ExpectForm("MsgBox", [press](QWidget& window) {
      EXPECT_EQ(window.windowTitle(), QStringLiteral("WARNING:  ALIASING ERROR"));
      Press(static_cast<QMessageBox&>(window), press);
    });
  }

  /// The list holds the forms of a plot and stands on the form that the picture shows.
  void ExpectShown(int plotNumber, const char* firstForm, int form, const QImage& picture) {
    EXPECT_EQ(view.CurrentPlot, plotNumber);
    EXPECT_EQ(List()->itemText(0).toStdString(), firstForm);
    EXPECT_EQ(List()->currentIndex(), form);
    EXPECT_EQ(Screen(), picture);
  }
};

TEST_F(FormListTest, ChoiceOfTheFormOnShowCountsAsAnyOther) {
  ClickMenu("mnuViewTxTFPress");
  const int form = List()->currentIndex();
  Click("Cursor1");
  EXPECT_TRUE(measured.CursorOn);
  view.AmplAuto = false;
  WroteSetupFile();
  ChooseInOpenList(form);
  EXPECT_EQ(List()->currentIndex(), form);
  EXPECT_FALSE(measured.CursorOn);
  EXPECT_TRUE(WroteSetupFile());
  EXPECT_FALSE(view.AmplAuto) << "the form is the same";
}

TEST_F(FormListTest, ChoiceOfTheFormOnShowByKeysCountsToo) {
  Click("Cursor1");
  List()->setFocus();
  QTest::keyClick(List(), Qt::Key_Down, Qt::AltModifier);
  ASSERT_TRUE(QTest::qWaitFor([&] { return List()->view()->isVisible(); }));
  QTest::keyClick(List()->view(), Qt::Key_Return);
  EXPECT_FALSE(measured.CursorOn);
}

TEST_F(FormListTest, ListThatIsOpenedAndLeftChoosesNothing) {
  Click("Cursor1");
  List()->setFocus();
  QTest::keyClick(List(), Qt::Key_Down, Qt::AltModifier);
  ASSERT_TRUE(QTest::qWaitFor([&] { return List()->view()->isVisible(); }));
  QTest::keyClick(List()->view(), Qt::Key_Escape);
  EXPECT_TRUE(measured.CursorOn);
}

TEST_F(FormListTest, ChoiceOfAnotherFormRunsOnce) {
  ClickMenu("mnuViewTxTFPress");
  const int other = List()->currentIndex() == 0 ? 1 : 0;
  int emptied = 0;
  auto& picture = static_cast<PictureSurface&>(main->Picture1());
  picture.SetChangeListener(
      [&](const QRect& changed) { emptied += changed.size() == picture.Size() ? 1 : 0; });
  ChooseInOpenList(other);
  picture.SetChangeListener({});
  EXPECT_EQ(List()->currentIndex(), other);
  EXPECT_EQ(emptied, 1) << "each drawing empties the picture once";
}

TEST_F(FormListTest, ProgramsChoiceCountsWhenItChangesTheIndex) {
  ClickMenu("mnuViewTxTFPress");
  WroteSetupFile();
  main->SetPlotTypeIndex(List()->currentIndex());
  EXPECT_FALSE(WroteSetupFile());
  main->SetPlotTypeIndex(List()->currentIndex() == 0 ? 1 : 0);
  EXPECT_TRUE(WroteSetupFile());
}

TEST_F(FormListTest, RefusedWaveformLeavesThePlotOnShowChosen) {
  ClickMenu("mnuViewTxZ");
  ChooseForm(2);
  const QImage impedance = Screen();
  Undersample();
  ExpectWarning(QMessageBox::Cancel);
  ClickMenu("mnuViewTxWfm");
  ExpectShown(11, "Z, Theta", 2, impedance);
  ChooseForm(3);
  EXPECT_EQ(scale.LeftLabel, "G");
  EXPECT_EQ(Screen(), CorePicture());
  ChooseForm(2);
  EXPECT_EQ(Screen(), impedance) << "its values are no longer those of the plot";
}

TEST_F(FormListTest, AcceptedWaveformIsNotAskedAboutAgainWhenTheWindowChangesItsSize) {
  Undersample();
  ExpectWarning(QMessageBox::Ok);
  ClickMenu("mnuViewTxWfm");
  Click("Cursor1");
  main->resize(main->width() + 80, main->height() + 30);
  EXPECT_FALSE(measured.CursorOn);
  EXPECT_EQ(Screen(), CorePicture());
  EXPECT_EQ(view.CurrentPlot, 16);
}

TEST_F(FormListTest, RefusedWaveformIsNotAskedAboutAgainWhenTheWindowChangesItsSize) {
  ClickMenu("mnuViewTxTFPress");
  Undersample();
  ExpectWarning(QMessageBox::Cancel);
  ClickMenu("mnuView2WayItem(3)");
  main->resize(main->width() + 80, main->height() + 30);
  ExpectShown(14, "Linear", setup.PlotFormMemory(14), CorePicture());
}

TEST_F(FormListTest, WindowMayChangeItsSizeBehindTheQuestion) {
  ClickMenu("mnuViewTxTFPress");
  Click("Cursor1");
  Undersample();
  script.ExpectForm("MsgBox", [&](QWidget& box) {
    main->resize(main->width() + 80, main->height() + 30);
    EXPECT_EQ(plot.PlotTitle, "Transmit Transfer Function - P(Pascals)/V(Tx)");
    Press(static_cast<QMessageBox&>(box), QMessageBox::Cancel);
  });
  ClickMenu("mnuViewTxWfm");
  ExpectShown(14, "Linear", setup.PlotFormMemory(14), CorePicture());
}

TEST_F(FormListTest, OneWaveformRefusedLeavesAnother) {
  ClickMenu("mnuViewTxWfm");
  const QImage transmitted = Screen();
  const int form = List()->currentIndex();
  Undersample();
  ExpectWarning(QMessageBox::Cancel);
  ClickMenu("mnuViewRxWfm");
  ExpectShown(16, "Waveform", form, transmitted);
}

TEST_F(FormListTest, ManualScaleOutlastsARefusedWaveform) {
  ClickMenu("mnuViewTxTFPress");
  view.AmplAuto = false;
  Undersample();
  ExpectWarning(QMessageBox::Cancel);
  ClickMenu("mnuViewTxWfm");
  EXPECT_FALSE(view.AmplAuto);
  EXPECT_TRUE(plot.DualTrace);
}

TEST_F(FormListTest, OutdatedWaveformKeepsItsFormUntilItIsMadeAnew) {
  ClickMenu("mnuViewTxWfm");
  ChooseForm(0);
  const QImage before = Screen();
  Undersample();
  ExpectWarning(QMessageBox::Cancel);
  PlotSelect(view.CurrentPlot);  // as after a change of the design
  ExpectShown(16, "Waveform", 0, before);

  ExpectWarning(QMessageBox::Cancel);
  List()->setFocus();
  QTest::keyClick(List(), Qt::Key_Down);
  ExpectShown(16, "Waveform", 0, before);
  EXPECT_EQ(setup.PlotFormMemory(16), 0);

  ExpectWarning(QMessageBox::Ok);
  QTest::keyClick(List(), Qt::Key_Down);
  EXPECT_EQ(List()->currentText(), "Envelope");
  EXPECT_EQ(Screen(), CorePicture());
  ChooseForm(2);  // asks no more
  EXPECT_EQ(Screen(), CorePicture());
}

TEST_F(FormListTest, WaveformRefusedAtOpeningLeavesEmptyAxesAndAnEmptyList) {
  ClickMenu("mnuViewTxWfm");
  const std::string path = Data("slow.dat").string();
  design.NoTimePts = 100;  // 12.5 MHz for a sweep up to 9 MHz
  script.ExpectFileDialog("Save As", path);
  ClickMenu("mnuFileItem(2)");
  ClickMenu("mnuFileItem(0)");
  const QImage empty = Screen();
  script.ExpectFileDialog("File Open", path);
  ExpectWarning(QMessageBox::Cancel);
  ClickMenu("mnuFileItem(1)");
  EXPECT_TRUE(plot.DesignOpen);
  EXPECT_EQ(List()->count(), 0);
  EXPECT_EQ(Screen(), empty);
  main->resize(main->width() + 80, main->height());
  main->resize(main->width() - 80, main->height());
  EXPECT_EQ(Screen(), empty);
}

}  // namespace
}  // namespace halvorne::testing
