#pragma once

#include <functional>
#include <map>
#include <string>

#include "dialogs/dialog_driver.h"
#include "dialogs/enter_layers.h"
#include "dialogs/entry_state.h"
#include "engine/design_model.h"
#include "persistence/file_fixture.h"
#include "platform/numbers.h"
#include "shell/modal_script.h"

namespace halvorne::testing {

/// The two large dialogs opened as their menu commands open them, over the small valid design, with
/// message boxes written down and file dialogs answered by the script.
class LargeDialogTest : public FileTest {
 protected:
  LargeDialogTest() {
    Reset(entry);
    MakeSimpleDesign();
  }
  ~LargeDialogTest() override {
    EXPECT_TRUE(script.Finished()) << "a window that was expected did not come";
  }

  using Act = std::function<void(const DialogDriver& driver)>;

  /// Opens the piezoelectric layers and works the dialog, which must be closed then.
  void OpenPiezo(const Act& act) {
    ExpectDialog("frmPiezoEntry", act);
    EnterPiezoLayers(nullptr);
  }
  /// Opens the plates of a side.
  void OpenPlates(const char* side, const Act& act) {
    ExpectDialog("frmFaceEntry", act);
    EnterPlates(side, nullptr);
  }
  void ExpectDialog(const std::string& form, const Act& act) {
    script.ExpectForm(form, [act, form](QWidget& opened) {
      const DialogDriver driver(static_cast<QDialog&>(opened));
      act(driver);
      EXPECT_FALSE(driver.IsOpen()) << form << " was to be closed";
      opened.close();
    });
  }

  /// "title|text" of the box of the file commands.
  static std::string FileBoxLine(const std::string& title, int number) {
    return title + "|The following error occured: \r\nError # " + std::to_string(number) + "\r\n" +
           FailureDescription(number);
  }

  ModalScript script;
};

/// A number box of a Material page and what becomes of a text that is typed into it.
struct TypedNumber {
  const char* box;
  const char* typed;
  const char* shown;
  double stored;
};

/// The fields of the record on show, by the names of their boxes.
using FieldsByBox = std::map<std::string, double>;

/// Types the text and expects what the box then shows and `fields` then yields for it.
inline void ExpectTyped(const DialogDriver& driver, const TypedNumber& number,
                        const std::function<FieldsByBox()>& fields) {
  driver.Type(number.box, number.typed);
  EXPECT_EQ(driver.Text(number.box), number.shown);
  EXPECT_EQ(fields().at(number.box), number.stored);
}

}  // namespace halvorne::testing
