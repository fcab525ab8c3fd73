// The table of F in the database that the build makes.
#include "framework/files/Database.h"
#include "Compare.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <future>

using namespace Qt::StringLiterals;

class DatabaseTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { FailOnWarnings(); }

    void Table()
    {
        DatabaseFTable table(QStringLiteral(QUOREL_TEST_DATABASE));
        // NIST/SEMATECH e-Handbook of Statistical Methods, upper critical values of F at 5 %, three decimals
        const struct {
            std::int16_t gdl1;
            std::int16_t gdl2;
            double printed;
        } rows[] = {{1, 1, 161.448}, {1, 10, 4.965}, {2, 10, 4.103}, {3, 10, 3.708}, {3, 100, 2.696}};
        for (const auto& [gdl1, gdl2, printed] : rows)
            QVERIFY2(std::fabs(ValoreF(gdl1, gdl2, table) - printed) <= 0.0005,
                     qPrintable(QString::number(printed)));
        for (std::int16_t gdl1 = 1; gdl1 <= 3; ++gdl1) {
            for (std::int16_t gdl2 = 1; gdl2 <= 1000; ++gdl2)
                QVERIFY(table.Find(gdl1, gdl2));
            QVERIFY(!table.Find(gdl1, 0) && !table.Find(gdl1, 1001));
        }
        QVERIFY(!table.Find(4, 10));
        QCOMPARE_EQ(ValoreF(2, 1001, table), 3.0);
    }

    void MissingTableFailsWhereItIsAskedFor()
    {
        const QTemporaryDir folder;
        DatabaseFTable missing(folder.filePath(u"none.MDB"_s));
        VERIFY_FAILS(ValoreF(1, 5, missing), FailureKind::DatabaseNotOpen);
        QVERIFY(ValoreF(4, 5, missing) > 5); // not asked for
        QVERIFY(!QFile::exists(folder.filePath(u"none.MDB"_s)));

        QFile file(folder.filePath(u"text.MDB"_s));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("no database at all") > 0);
        file.close();
        DatabaseFTable other(file.fileName());
        VERIFY_FAILS(ValoreF(1, 5, other), FailureKind::DatabaseNotOpen);
        VERIFY_FAILS(ValoreF(1, 5, other), FailureKind::DatabaseNotOpen);
        QVERIFY(file.resize(0)); // an empty file is a database without tables
        VERIFY_FAILS(ValoreF(1, 5, other), FailureKind::TableNotFound);
        QVERIFY(file.remove() && QFile::copy(QStringLiteral(QUOREL_TEST_DATABASE), file.fileName()));
        QVERIFY(other.Find(1, 5));                  // tried again each time
        QVERIFY(file.remove() && other.Find(1, 6)); // read once, and kept

        // One that ends in the middle is not taken for the whole.
        QVERIFY(QFile::copy(QStringLiteral(QUOREL_TEST_DATABASE), file.fileName()) &&
                file.open(QIODevice::ReadWrite));
        const QByteArray zeros(file.size() / 4, '\0');
        QVERIFY(file.seek(file.size() - zeros.size()) && file.write(zeros) == zeros.size());
        file.close();
        VERIFY_FAILS(DatabaseFTable(file.fileName()).Find(1, 5), FailureKind::DatabaseNotOpen);
    }

    void OtherTables()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(u"empty.MDB"_s);
        QVERIFY(QFile::copy(QStringLiteral(QUOREL_TEST_DATABASE), file));
        QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_s);
        database.setDatabaseName(file);
        QVERIFY(database.open() && QSqlQuery(database).exec(u"DELETE FROM Anagrafica"_s));
        VERIFY_FAILS(ReadCompany(file), FailureKind::TableNotFound);
        VERIFY_FAILS(WriteCompany(file, {}), FailureKind::TableNotFound);
        for (const auto& sql : {u"DROP TABLE TabF"_s, u"CREATE TABLE TabF (GDL_1, GDL_2, VAL_F)"_s,
                                u"INSERT INTO TabF VALUES (1, 5, 6.6), (1, 5, 7.7)"_s})
            QVERIFY(QSqlQuery(database).exec(sql));
        QCOMPARE_EQ(DatabaseFTable(file).Find(1, 5), std::optional(6.6)); // the first row of a pair counts
    }

    void AskedFromTwoThreads()
    {
        DatabaseFTable table(QStringLiteral(QUOREL_TEST_DATABASE));
        auto one = std::async(std::launch::async, [&] { return table.Find(1, 5); });
        auto other = std::async(std::launch::async, [&] { return table.Find(1, 6); });
        QVERIFY(one.get() && other.get());
    }
};

QTEST_GUILESS_MAIN(DatabaseTest)
#include "DatabaseTest.moc"
