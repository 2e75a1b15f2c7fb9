#include <QApplication>
#include <QDir>
#include <QMetaObject>
#include <QTimer>
#include <functional>

#include "dialogs/dialog_driver.h"
#include "dialogs/enter_layers.h"
#include "dialogs/entry_state.h"
#include "dialogs/plate_side.h"
#include "platform/numbers.h"
#include "shell/dark_palette.h"
#include "shell/layout_check.h"

namespace halvorne::testing {
namespace {

/// What is on show: the layers or plates of a design and the desktop's colours.
struct Look {
  std::string name;
  int layers;
  int plates;
  const char* side;  ///< null: the piezoelectric layers
};

/// Every page of the two large dialogs, whole and in order, in light and in dark colours.
class LargeDialogsLook : public FreshProgram, public ::testing::WithParamInterface<Look> {
 protected:
  LargeDialogsLook() {
    Reset(entry);
    MakeSimpleDesign();
    design.NoPiezo = static_cast<std::int16_t>(GetParam().layers);
    design.PZMatl(1).Name = "Navy type II ceramic, fine grain";
    design.PZMatl(1).Vendor = "A maker";
    design.PZMatl(2) = design.PZMatl(1);
    design.PZThick(2) = design.PZThick(1);
    design.PZPolarity(2) = 1;
    design.PZConnect = 2;
    design.NoFace = design.NoBack = static_cast<std::int16_t>(GetParam().plates);
    for (int plate = 1; plate <= kMaxPlates; ++plate) {
      AcousticMaterial& matl = design.FaceMatl(plate);
      matl.Name = "Alumina loaded epoxy, 25 percent";
      matl.Velocity = 2500;
      matl.ShearVelocity = 1200;
      matl.Density = 1950;
      matl.Loss = 5.3F;
      matl.LossFreq = 1;
      matl.LossExp = 1.1F;
      matl.Comments = "Mixed under vacuum, cured at 60 degrees for twelve hours, then annealed";
      design.BackMatl(plate) = matl;
      design.FrontThick(plate) = design.BackThick(plate) = 0.00012345;
      design.FrontArea(plate) = design.BackArea(plate) = 1;
    }
    design.PZVelDispOn = design.FaceVelDispOn = design.BackVelDispOn = GetParam().plates != 0;
    for (const int slot : {0, 1, 12}) {
      design.VelDispNames(slot, 0) = "A long name of a dispersion file, 25 percent alumina.csv";
      design.VelDispNames(slot, 1) =
          "25 % Al2O3/epoxy: velocity that belongs to a loss of 5.3 dB/cm at 1 MHz, 0.5 to 5.5 "
          "MHz, "
          "251 points";
    }
  }
  ~LargeDialogsLook() override { QApplication::setPalette(light_); }

  void TakePages(QDialog& dialog) const {
    for (int i = 0; i < 3; ++i) {
      auto* const button = dialog.findChild<QAbstractButton*>(QStringLiteral("CmdView(%1)").arg(i));
      if (!button->isVisible() || !button->isEnabled()) {
        continue;
      }
      QTest::mouseClick(button, Qt::LeftButton);
      QApplication::processEvents();
      const std::string shot =
          GetParam().name + "_" + theme_ + "_" + button->text().toLower().toStdString();
      const QDir folder(QStringLiteral(HALVORNE_SOURCE_DIR "/build/screenshots"));
      EXPECT_TRUE(folder.mkpath(QStringLiteral(".")));
      EXPECT_TRUE(dialog.grab().save(folder.filePath(QString::fromStdString(shot + ".png"))));
      for (const std::string& fault : LayoutFaults(dialog)) {
        ADD_FAILURE() << shot << ": " << fault;
      }
      EXPECT_LE(dialog.width(), 1366) << shot;
      EXPECT_LE(dialog.height(), 768 - 40) << shot << " with its title bar";
    }
    dialog.close();
  }

  void Take(bool dark) {
    theme_ = dark ? "dark" : "light";
    QApplication::setPalette(dark ? DarkPalette() : light_);
    QTimer::singleShot(0, [this] {
      auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      ASSERT_TRUE(QTest::qWaitForWindowExposed(dialog));
      TakePages(*dialog);
    });
    if (GetParam().side == nullptr) {
      EnterPiezoLayers(nullptr);
    } else {
      EnterPlates(GetParam().side, nullptr);
    }
  }

 private:
  QPalette light_ = QApplication::palette();
  std::string theme_;
};

TEST_P(LargeDialogsLook, IsWholeAndInOrder) {
  Take(false);
  Take(true);
}

INSTANTIATE_TEST_SUITE_P(Of, LargeDialogsLook,
                         ::testing::Values(Look{"frmPiezoEntry_one_layer", 1, 1, nullptr},
                                           Look{"frmPiezoEntry_two_layers", 2, 1, nullptr},
                                           Look{"frmFaceEntry_no_plate", 1, 0, "Face"},
                                           Look{"frmFaceEntry_one_plate", 1, 1, "Face"},
                                           Look{"frmFaceEntry_ten_plates", 1, 10, "Face"},
                                           Look{"frmFaceEntry_ten_back_plates", 1, 10, "Back"}),
                         [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace halvorne::testing
