#include "materials/cell_editor.h"

#include <QEvent>
#include <QLineEdit>
#include <QLocale>
#include <QRegularExpression>
#include <QValidator>
#include <cmath>
#include <utility>

namespace halvorne {
namespace {

/// What is, or can still become, a finite number: nothing too, which leaves a cell without one.
class NumberValidator final : public QValidator {
 public:
  using QValidator::QValidator;

  State validate(QString& text, int& /*position*/) const override {
    QString plain = text.trimmed();
    plain.replace(QLocale().decimalPoint(), QStringLiteral("."));
    static const QRegularExpression begun(
        QStringLiteral(R"(^[+-]?([0-9]*\.?[0-9]*)([eE]([+-]?[0-9]*))?$)"));
    const QRegularExpressionMatch match = begun.match(plain);
    if (!match.hasMatch()) {
      return Invalid;
    }
    if (plain.isEmpty()) {
      return Acceptable;
    }
    bool whole = false;
    const double value = QLocale::c().toDouble(plain, &whole);
    if (whole) {
      return Acceptable;
    }
    return std::isinf(value) ? Invalid : Intermediate;
  }
};

}  // namespace

CellEditor::CellEditor(std::function<bool(int)> holdsNumbers,
                       std::function<void(const QModelIndex&, const QString&)> enter)
    : holdsNumbers_(std::move(holdsNumbers)), enter_(std::move(enter)) {}

QWidget* CellEditor::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                  const QModelIndex& cell) const {
  edited_ = cell;
  auto* const box = new QLineEdit(parent);
  box->setObjectName(QStringLiteral("CellEditor"));
  box->setAccessibleName(cell.model()->headerData(cell.column(), Qt::Horizontal).toString());
  box->setFrame(false);
  if (holdsNumbers_(cell.column())) {
    box->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    box->setValidator(new NumberValidator(box));
  }
  return box;
}

void CellEditor::setEditorData(QWidget* editor, const QModelIndex& cell) const {
  // The exact text and not the value: a box for numbers would cut 0.00147 to 0.00 by being opened.
  static_cast<QLineEdit*>(editor)->setText(cell.data(Qt::DisplayRole).toString());
}

void CellEditor::setModelData(QWidget* editor, QAbstractItemModel* /*model*/,
                              const QModelIndex& cell) const {
  enter_(cell, static_cast<QLineEdit*>(editor)->text());
}

bool CellEditor::eventFilter(QObject* editor, QEvent* event) {
  const auto* const box = qobject_cast<QLineEdit*>(editor);
  if (event->type() == QEvent::FocusOut && box != nullptr && !box->hasAcceptableInput() &&
      box->isActiveWindow() && !box->hasFocus()) {
    enter_(edited_, box->text());
  }
  return QStyledItemDelegate::eventFilter(editor, event);
}

}  // namespace halvorne
