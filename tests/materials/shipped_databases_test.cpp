// The databases of share/ against the tables in databases/ that they are built from.

#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTextStream>
#include <gtest/gtest.h>
#include <ostream>

#include "materials/data_sources.h"

namespace halvorne::testing {
namespace {

struct ShippedDatabase {
  const char* file;
  const char* source;
  QStringList columns;  ///< of every table, in the order of the browser's grid
};

void PrintTo(const ShippedDatabase& database, std::ostream* out) {
  *out << database.file;
}

const QStringList kTexts = {"Material", "Vendor", "Formula", "Comments", "Data source"};

/// The cells of a line of comma-separated values, some of them in double quotes.
QStringList Cells(const QString& line) {
  QStringList cells = {""};
  bool quoted = false;
  for (const QChar c : line) {
    if (c == '"') {
      quoted = !quoted;
    } else if (c == ',' && !quoted) {
      cells.append("");
    } else {
      cells.last() += c;
    }
  }
  return cells;
}

class Database : public ::testing::TestWithParam<ShippedDatabase> {
 public:
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

 protected:
  Database() {
    QFile file(QStringLiteral(HALVORNE_SOURCE_DIR "/databases/") + GetParam().source);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly | QIODevice::Text));
    QTextStream text(&file);
    header_ = Cells(text.readLine());
    for (QString line; text.readLineInto(&line);) {
      const QStringList cells = Cells(line);
      rows_[cells.front()].append(cells.mid(1));
    }
    store_ = QSqlDatabase::addDatabase(kDatabaseDriver, kConnection);
    store_.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
    store_.setDatabaseName(QStringLiteral(HALVORNE_SOURCE_DIR "/share/Database/") +
                           GetParam().file);
    EXPECT_TRUE(store_.open());
  }
  ~Database() override {
    store_ = {};
    QSqlDatabase::removeDatabase(kConnection);
  }

  static constexpr const char* kConnection = "shipped";

  QStringList header_;
  QMap<QString, QList<QStringList>> rows_;  ///< by table
  QSqlDatabase store_;
};

TEST_P(Database, HasTheTablesOfItsSource) {
  QStringList tables = store_.tables();
  tables.sort();
  EXPECT_EQ(tables, rows_.keys());
  EXPECT_FALSE(tables.isEmpty());
}

TEST_P(Database, HasTheColumnsThatTheBrowserAddressesByNumber) {
  EXPECT_EQ(header_.mid(1), GetParam().columns);
  for (const QString& table : rows_.keys()) {
    const QSqlRecord record = store_.record(table);
    ASSERT_EQ(record.count(), GetParam().columns.size()) << table.toStdString();
    for (int column = 0; column < record.count(); ++column) {
      EXPECT_EQ(record.fieldName(column), GetParam().columns[column]) << table.toStdString();
    }
  }
}

TEST_P(Database, HasEveryCellOfItsSource) {
  for (const QString& table : rows_.keys()) {
    QSqlQuery query(QStringLiteral("SELECT * FROM \"%1\" ORDER BY rowid").arg(table), store_);
    for (const QStringList& cells : rows_[table]) {
      ASSERT_TRUE(query.next()) << table.toStdString();
      for (int column = 0; column < cells.size(); ++column) {
        const QVariant stored = query.value(column);
        if (kTexts.contains(GetParam().columns[column])) {
          EXPECT_EQ(stored.toString(), cells[column]);
        } else {
          EXPECT_EQ(stored.userType(), QMetaType::Double) << cells[0].toStdString();
          EXPECT_EQ(stored.toDouble(), cells[column].toDouble()) << cells[0].toStdString();
        }
      }
    }
    EXPECT_FALSE(query.next()) << "more rows than the source has: " << table.toStdString();
  }
}

INSTANTIATE_TEST_SUITE_P(
    Shipped, Database,
    ::testing::Values(
        ShippedDatabase{"pzmatls.mdb",
                        "piezo_materials.csv",
                        {"Material", "Longit vel m/sec", "Shear vel m/sec", "Density kg/m^3",
                         "Clamped diel const", "Coupling coef kt", "Elec loss tan de",
                         "Mech loss tan dm", "Vendor", "Data source"}},
        ShippedDatabase{
            "Acoustic.mdb",
            "acoustic_materials.csv",
            {"Material", "Longit vel m/sec", "Shear vel m/sec", "Density kg/m^3", "Loss in dB/cm",
             "Loss freq MHz", "Loss exponent", "Vendor", "Formula", "Comments", "Data source"}}));

}  // namespace
}  // namespace halvorne::testing
