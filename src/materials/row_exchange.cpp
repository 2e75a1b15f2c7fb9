#include "materials/row_exchange.h"

#include <QRegularExpression>

namespace halvorne {
namespace {

QString CellText(const QString& cell) {
  static const QRegularExpression special(QStringLiteral("[\t\r\n\"]"));
  if (!cell.contains(special)) {
    return cell;
  }
  QString inside = cell;
  return u'"' + inside.replace(u'"', QStringLiteral("\"\"")) + u'"';
}

/// Takes the text apart, one character after the other.
class RowReader {
 public:
  void Take(QChar c) {
    if (quoted_) {
      TakeQuoted(c);
    } else if (c == u'"' && cell_.isEmpty()) {
      quoted_ = true;
    } else if (c == u'\t') {
      EndCell();
    } else if (c == u'\n') {
      EndRow();
    } else {
      cell_ += c;
    }
  }

  std::vector<QStringList> Rows() {
    EndRow();
    return rows_;
  }

 private:
  /// A double quote ends the quotes, a second one right behind it was one of the text.
  void TakeQuoted(QChar c) {
    if (c == u'"') {
      closing_ = !closing_;
      if (!closing_) {
        cell_ += c;
      }
      return;
    }
    if (closing_) {
      quoted_ = closing_ = false;
      Take(c);
      return;
    }
    cell_ += c;
  }

  void EndCell() {
    row_.append(cell_);
    cell_.clear();
    quoted_ = closing_ = false;
  }

  void EndRow() {
    EndCell();
    if (row_.size() > 1 || !row_.front().isEmpty()) {
      rows_.push_back(row_);
    }
    row_.clear();
  }

  std::vector<QStringList> rows_;
  QStringList row_;
  QString cell_;
  bool quoted_ = false;
  bool closing_ = false;
};

}  // namespace

QString RowsText(const std::vector<QStringList>& rows) {
  QString text;
  for (const QStringList& row : rows) {
    QStringList cells;
    for (const QString& cell : row) {
      cells.append(CellText(cell));
    }
    text += cells.join(u'\t') + QStringLiteral("\r\n");
  }
  return text;
}

std::vector<QStringList> RowsOfText(const QString& text) {
  QString lines = text;
  lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
  RowReader reader;
  for (const QChar c : lines) {
    reader.Take(c);
  }
  return reader.Rows();
}

}  // namespace halvorne
