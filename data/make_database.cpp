// Makes the master of the database: runs the schema and fills the table of F with exact values.
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

#include <boost/math/distributions/fisher_f.hpp>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace
{

constexpr int kLastGdl1 = 3;
constexpr int kLastGdl2 = 1000;
constexpr double kAlpha = 0.05;

[[noreturn]] void Stop(const QString& reason)
{
    std::fprintf(stderr, "make_database: %s\n", qPrintable(reason));
    std::exit(1);
}

void RunSchema(const QSqlDatabase& database, const QString& schemaFile)
{
    QFile file(schemaFile);
    if (!file.open(QIODevice::ReadOnly))
        Stop(file.errorString());
    QString schema = QString::fromUtf8(file.readAll());
    schema.remove(QRegularExpression(u"--[^\n]*"_s)); // comments may hold semicolons
    QSqlQuery query(database);
    for (const QString& statement : schema.split(u';')) {
        if (!statement.trimmed().isEmpty() && !query.exec(statement))
            Stop(query.lastError().text());
    }
}

void FillTableOfF(const QSqlDatabase& database)
{
    QSqlQuery query(database);
    query.prepare(u"INSERT INTO TabF (GDL_1, GDL_2, VAL_F) VALUES (?, ?, ?)"_s);
    for (int gdl1 = 1; gdl1 <= kLastGdl1; ++gdl1) {
        for (int gdl2 = 1; gdl2 <= kLastGdl2; ++gdl2) {
            query.bindValue(0, gdl1);
            query.bindValue(1, gdl2);
            query.bindValue(2, quantile(complement(boost::math::fisher_f(gdl1, gdl2), kAlpha)));
            if (!query.exec())
                Stop(query.lastError().text());
        }
    }
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3)
        Stop(u"usage: make_database SCHEMA DATABASE"_s);
    const QString& target = arguments[2];
    QDir().mkpath(QFileInfo(target).absolutePath());
    QFile::remove(target);

    QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_s);
    database.setDatabaseName(target);
    if (!database.open())
        Stop(database.lastError().text());
    database.transaction();
    RunSchema(database, arguments[1]);
    FillTableOfF(database);
    if (!database.commit())
        Stop(database.lastError().text());
    database.close();
    return 0;
}
