#pragma once

#include <QMenu>
#include <QString>
#include <array>
#include <functional>
#include <vector>

namespace halvorne {

/// Groups of the graph's menu, top to bottom, each with a line between it and the next.
enum class GraphGroup { kHold, kTune, kTakeAlong, kReadOff, kScales };
inline constexpr int kGraphGroups = 5;

/// True while a design is open, which is what most entries of the graph's menu work on.
bool DesignIsOpen();

/// An entry of the graph's menu. Unit by unit they are added in frmHalvorneMain::MakeGraphMenu.
struct GraphMenuRow {
  GraphGroup group;
  const char* name;                         ///< its objectName
  QString caption;                          ///< with the "&" of its letter
  std::function<void()> procedure;          ///< reports its own failures
  const char* shortcut = "";                ///< works in the whole window, with the menu closed
  std::function<bool()> checked = nullptr;  ///< of a check item: whether its mark is set
  std::function<bool()> available = DesignIsOpen;  ///< false: it is grey and its key does nothing
};

/// The menu of the graph, opened by the right button, the Menu key and Shift+F10.
///
/// Marks and grey entries are found out when it opens, so that nothing keeps them up to date while
/// it is closed.
class GraphMenu final : public QMenu {
 public:
  using Procedure = std::function<void()>;

  /// @param window  whose keys the shortcuts are
  /// @param before  is done before any entry: takes what is being typed
  GraphMenu(QWidget* window, Procedure before);

  /// Puts an entry at the end of its group.
  QAction* Add(const GraphMenuRow& row);
  /// Takes an entry away.
  void Remove(QAction* entry);
  /// Has `refresh` done each time before the menu is shown: entries that come and go.
  void OnOpening(Procedure refresh) { refreshers_.push_back(std::move(refresh)); }
  /// Shows the menu with its corner at a place of the screen; nothing while it is open.
  void Open(QPoint place);

 private:
  struct Entry {
    QAction* action;
    std::function<bool()> checked;
    std::function<bool()> available;
  };

  void FindOutStates();

  Procedure before_;
  std::array<QAction*, kGraphGroups> ends_{};  ///< the line below each group
  std::vector<Entry> entries_;
  std::vector<Procedure> refreshers_;
};

}  // namespace halvorne
