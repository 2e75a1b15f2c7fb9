#include "materials/row_exchange.h"

#include <gmock/gmock.h>

namespace halvorne {

void PrintTo(const QStringList& row, std::ostream* out) {
  *out << row.join(" | ").toStdString();
}

}  // namespace halvorne

namespace halvorne::testing {
namespace {

using Rows = std::vector<QStringList>;

TEST(RowExchange, WritesALineARowWithTabsBetweenTheCells) {
  EXPECT_EQ(RowsText({{"a", "1"}, {"b", ""}}).toStdString(), "a\t1\r\nb\t\r\n");
  EXPECT_EQ(RowsText({}).toStdString(), "");
}

TEST(RowExchange, PutsCellsThatWouldBreakARowIntoDoubleQuotes) {
  EXPECT_EQ(RowsText({{"a\tb", "two\nlines", "3\" disk"}}).toStdString(),
            "\"a\tb\"\t\"two\nlines\"\t\"3\"\" disk\"\r\n");
}

TEST(RowExchange, ReadsWhatItWrites) {
  const Rows rows = {{"a\tb", "two\nlines", "3\" disk", ""}, {"", "x", "\"quoted\"", "end"}};
  EXPECT_EQ(RowsOfText(RowsText(rows)), rows);
}

TEST(RowExchange, ReadsWhateverLineEndsAndNoEmptyLines) {
  EXPECT_EQ(RowsOfText("a\tb\r\nc\td\re\tf\n\n\r\n"), (Rows{{"a", "b"}, {"c", "d"}, {"e", "f"}}));
  EXPECT_EQ(RowsOfText("a\tb"), (Rows{{"a", "b"}}));
  EXPECT_EQ(RowsOfText(""), Rows());
  EXPECT_EQ(RowsOfText("\t\n"), (Rows{{"", ""}}));
}

TEST(RowExchange, TakesADoubleQuoteInsideACellAsItself) {
  EXPECT_EQ(RowsOfText("3\" disk\t4"), (Rows{{"3\" disk", "4"}}));
  EXPECT_EQ(RowsOfText("\"never closed\tx\ny"), (Rows{{"never closed\tx\ny"}}));
  EXPECT_EQ(RowsOfText("\"closed\" early\tx"), (Rows{{"closed early", "x"}}));
}

}  // namespace
}  // namespace halvorne::testing
