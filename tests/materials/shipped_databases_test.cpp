// The databases of share/ against the tables in databases/ that they are built from.

#include <QFile>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>
#include <QTextStream>
#include <cmath>
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

/// What no material can be, in words of the columns; empty when all is well.
QString Impossible(const QMap<QString, double>& numbers) {
  const double velocity = numbers["Longit vel m/sec"];
  if (velocity <= 0 || numbers["Density kg/m^3"] <= 0) {
    return "a velocity or density of zero";
  }
  // Poisson's ratio would be below zero; 0 stands for a shear wave that is not known or not there.
  if (numbers["Shear vel m/sec"] < 0 || numbers["Shear vel m/sec"] > velocity / std::sqrt(2.0)) {
    return "a shear velocity above velocity / sqrt(2)";
  }
  if (numbers.contains("Coupling coef kt")) {
    const double kt = numbers["Coupling coef kt"];
    const auto loss = [&](const char* name) { return numbers[name] < 0 || numbers[name] > 1; };
    return kt <= 0 || kt >= 1                                     ? "kt outside 0 to 1"
           : numbers["Clamped diel const"] < 1                    ? "less dielectric than nothing"
           : loss("Elec loss tan de") || loss("Mech loss tan dm") ? "a loss tangent outside 0 to 1"
                                                                  : "";
  }
  const double loss = numbers["Loss in dB/cm"];
  if (loss < 0 || (loss > 0 && numbers["Loss freq MHz"] <= 0)) {
    return "a loss without a frequency";
  }
  return numbers["Loss exponent"] < 0 || numbers["Loss exponent"] > 5 ? "a wild exponent" : "";
}

TEST_P(Database, HoldsNothingThatIsPhysicallyImpossible) {
  int count = 0;
  for (const QString& table : store_.tables()) {
    QSqlQuery query(QStringLiteral("SELECT * FROM \"%1\"").arg(table), store_);
    while (query.next()) {
      ++count;
      QMap<QString, double> numbers;
      for (int column = 0; column < query.record().count(); ++column) {
        const QString name = query.record().fieldName(column);
        if (!kTexts.contains(name)) {
          EXPECT_FALSE(query.isNull(column)) << query.value(0).toString().toStdString();
          numbers[name] = query.value(column).toDouble();
        }
      }
      EXPECT_EQ(Impossible(numbers), "") << query.value(0).toString().toStdString();
      EXPECT_NE(query.value("Data source").toString(), "")
          << query.value(0).toString().toStdString();
    }
  }
  EXPECT_GT(count, 50);
}

TEST(DatabaseChecks, FindWhatIsPhysicallyImpossible) {
  const QMap<QString, double> layer = {{"Longit vel m/sec", 4000}, {"Shear vel m/sec", 2000},
                                       {"Density kg/m^3", 7500},   {"Clamped diel const", 800},
                                       {"Coupling coef kt", 0.5},  {"Elec loss tan de", 0.01},
                                       {"Mech loss tan dm", 0.01}};
  const QMap<QString, double> plate = {{"Longit vel m/sec", 4000}, {"Shear vel m/sec", 2000},
                                       {"Density kg/m^3", 7500},   {"Loss in dB/cm", 1},
                                       {"Loss freq MHz", 1},       {"Loss exponent", 1}};
  EXPECT_EQ(Impossible(layer), "");
  EXPECT_EQ(Impossible(plate), "");
  const auto changed = [](QMap<QString, double> numbers, const char* name, double value) {
    numbers[name] = value;
    return Impossible(numbers);
  };
  EXPECT_NE(changed(layer, "Coupling coef kt", 1), "");
  EXPECT_NE(changed(layer, "Coupling coef kt", 0), "");
  EXPECT_NE(changed(plate, "Shear vel m/sec", 2829), "");
  EXPECT_NE(changed(plate, "Density kg/m^3", 0), "");
  EXPECT_NE(changed(plate, "Longit vel m/sec", 0), "");
  EXPECT_NE(changed(plate, "Loss freq MHz", 0), "");
}

QByteArray BytesOf(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  return file.readAll();
}

TEST_P(Database, IsBuiltOfItsSourceWithTheSameBytesEachTime) {
  const QTemporaryDir first;
  const QTemporaryDir second;
  for (const QTemporaryDir* folder : {&first, &second}) {
    EXPECT_EQ(QProcess::execute("python3",
                                {HALVORNE_SOURCE_DIR "/scripts/make_databases.py", folder->path()}),
              0);
  }
  const QByteArray built = BytesOf(first.filePath(GetParam().file));
  EXPECT_EQ(built, BytesOf(second.filePath(GetParam().file)));
  // Bytes 96 to 99 are the number of the library's version that wrote it last.
  QByteArray shipped =
      BytesOf(QStringLiteral(HALVORNE_SOURCE_DIR "/share/Database/") + GetParam().file);
  EXPECT_EQ(shipped.replace(96, 4, built.mid(96, 4)), built);
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
