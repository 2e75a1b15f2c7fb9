#pragma once

#include <QTemporaryDir>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/qt/message_boxes.h"
#include "shell/frm_halvorne_main.h"
#include "shell/modal_script.h"

namespace halvorne::testing {

/// The desktop program in a program folder of its own, worked as a person would: by clicks and keys
/// on controls found by their objectName.
class WindowTest : public ::testing::Test {
 protected:
  WindowTest();
  ~WindowTest() override;

  /// Opens the main window, as at the end of start-up.
  void StartProgram();
  /// Gives the window the focus, as a desktop does when a window in front of it closes.
  void BecomeActive();
  /// Writes a design with plates and a tone burst to the data folder and returns its path.
  std::string MakeDesignFile(const std::string& name = "probe.dat");
  /// StartProgram, then File, Open with that design.
  void StartWithDesign();
  /// Opens a file through File, Open.
  void OpenFile(const std::string& path);

  /// Raises when the window has no such control.
  template <class Control>
  Control* Find(const std::string& name) const {
    auto* const control = main->findChild<Control*>(QString::fromStdString(name));
    if (control == nullptr) {
      throw std::runtime_error("no control is named " + name);
    }
    return control;
  }
  QAction* Action(const std::string& name) const { return Find<QAction>(name); }
  bool Enabled(const std::string& name) const { return Find<QWidget>(name)->isEnabled(); }
  std::string Caption(const std::string& label) const;
  std::string Cell(const std::string& grid, int row, int column) const;

  /// Chooses a command through the menu bar with the mouse.
  void ClickMenu(const std::string& name);
  /// Clicks a button of the window.
  void Click(const std::string& name);
  /// Chooses an entry of PlotType with the keyboard.
  void ChooseForm(int index);

  /// The picture as it is on the screen.
  QImage Screen() const;
  /// What the core draws on a picture of the same size.
  QImage CorePicture() const;
  /// The texts that the core draws.
  std::vector<std::string> CoreTexts() const;

  std::filesystem::path Folder() const { return folder_.path().toStdString(); }
  std::filesystem::path Data(const std::string& name) const { return Folder() / "DATA" / name; }

  ModalScript script;
  std::unique_ptr<frmHalvorneMain> main;

 private:
  QTemporaryDir folder_;
  std::filesystem::path startFolder_ = std::filesystem::current_path();
  MessageBoxes boxes_;
};

/// The whole of a file.
std::string ReadFile(const std::filesystem::path& path);

}  // namespace halvorne::testing
