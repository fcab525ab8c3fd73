#include "framework/files/Database.h"

#include "stats/RuntimeFailure.h"

#include <QFileInfo>
#include <QHash>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QStringList>
#include <QUuid>

#include <cstdint>
#include <optional>

using namespace Qt::StringLiterals;

namespace
{

/// How the driver says that a text is longer than its field; the field's name follows.
constexpr auto kCheckFailed = "CHECK constraint failed: "_L1;

/// The driver's numbers for what may befall a user, in the user's words; for anything else the driver's own.
QString ReasonOf(const QSqlError& error)
{
    static const QHash<int, QString> kReasons = {
        {5, u"un altro programma lo sta usando"_s},
        {8, u"il file è di sola lettura"_s},
        {10, u"errore di lettura o scrittura"_s},
        {11, u"il file è danneggiato"_s},
        {13, u"disco pieno"_s},
        {14, u"il file non può essere aperto"_s},
        {26, u"il file non è un database"_s},
    };
    constexpr int kWithoutDetails = 0xFF;
    return kReasons.value(error.nativeErrorCode().toInt() & kWithoutDetails, error.databaseText());
}

[[noreturn]] void Fail(FailureKind kind, const QSqlError& error)
{
    throw RuntimeFailure(kind, RuntimeFailure(kind).Text() + " (" + ReasonOf(error).toStdString() + ")");
}

/// A connection of its own for one operation, closed and removed at its end.
class Connection
{
public:
    enum class Access { Read, Write };

    Connection(const QString& dbFile, Access access) : m_name(QUuid::createUuid().toString())
    {
        m_database = QSqlDatabase::addDatabase(u"QSQLITE"_s, m_name);
        m_database.setDatabaseName(dbFile);
        // A second is long enough for another copy of the program, and short enough for whoever waits.
        m_database.setConnectOptions(access == Access::Read
                                         ? u"QSQLITE_BUSY_TIMEOUT=1000;QSQLITE_OPEN_READONLY"_s
                                         : u"QSQLITE_BUSY_TIMEOUT=1000"_s);
        const bool exists = QFileInfo(dbFile).isFile(); // the driver would make an empty one
        if (!exists || !m_database.open()) {
            const QSqlError error = m_database.lastError();
            Remove();
            if (!exists)
                throw RuntimeFailure(FailureKind::DatabaseNotOpen);
            Fail(FailureKind::DatabaseNotOpen, error);
        }
    }
    ~Connection() { Remove(); }
    Q_DISABLE_COPY_MOVE(Connection)

    QSqlQuery Query() const
    {
        QSqlQuery query(m_database);
        query.setForwardOnly(true);
        return query;
    }

private:
    void Remove()
    {
        m_database = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_name);
    }

    QString m_name;
    QSqlDatabase m_database;
};

/// A missing table is that; anything else is what the operation tells of.
[[noreturn]] void FailStatement(FailureKind otherwise, const QSqlError& error)
{
    const bool noTable = error.databaseText().contains("no such table"_L1);
    Fail(noTable ? FailureKind::TableNotFound : otherwise, error);
}

void RunQuestion(QSqlQuery& query, const QString& sql)
{
    if (!query.exec(sql))
        FailStatement(FailureKind::DatabaseNotOpen, query.lastError());
}

[[noreturn]] void FailWriting(const QSqlError& error)
{
    const QString text = error.databaseText();
    if (const qsizetype at = text.indexOf(kCheckFailed); at >= 0)
        throw RuntimeFailure(FailureKind::FieldTooSmall, text.sliced(at + kCheckFailed.size()).toStdString());
    FailStatement(FailureKind::DatabaseNotWritten, error);
}

QStringList CompanyFields()
{
    QStringList fields;
    for (const QLatin1StringView field : Company::kFields)
        fields += field;
    return fields + QStringList{u"LOGOTXT"_s, u"NOLOGOFLAG"_s};
}

} // namespace

Company ReadCompany(const QString& dbFile)
{
    const Connection connection(dbFile, Connection::Access::Read);
    QSqlQuery query = connection.Query();
    RunQuestion(query, u"SELECT %1 FROM Anagrafica ORDER BY ID LIMIT 1"_s.arg(CompanyFields().join(u", ")));
    if (!query.next())
        throw RuntimeFailure(FailureKind::TableNotFound, "La tabella Anagrafica è vuota");
    Company company;
    int column = 0;
    for (QString& text : company.texts)
        text = query.value(column++).toString();
    company.logoPath = query.value(column++).toString();
    company.noLogo = query.value(column).toBool();
    return company;
}

void WriteCompany(const QString& dbFile, const Company& company)
{
    const Connection connection(dbFile, Connection::Access::Write);
    QSqlQuery query = connection.Query();
    const QString assignments = CompanyFields().join(u" = ?, ") + u" = ?"_s;
    if (!query.prepare(
            u"UPDATE Anagrafica SET %1 WHERE ID = (SELECT min(ID) FROM Anagrafica)"_s.arg(assignments)))
        FailWriting(query.lastError());
    for (const QString& text : company.texts)
        query.addBindValue(text);
    query.addBindValue(company.logoPath);
    query.addBindValue(company.noLogo ? 1 : 0);
    if (!query.exec())
        FailWriting(query.lastError());
    if (query.numRowsAffected() != 1)
        throw RuntimeFailure(FailureKind::TableNotFound, "La tabella Anagrafica è vuota");
}

DatabaseFTable::DatabaseFTable(QString dbFile) : m_dbFile(std::move(dbFile)) {}

DatabaseFTable::Values DatabaseFTable::Read() const
{
    const Connection connection(m_dbFile, Connection::Access::Read);
    QSqlQuery query = connection.Query();
    RunQuestion(query, u"SELECT GDL_1, GDL_2, VAL_F FROM TabF"_s);
    Values values;
    while (query.next()) {
        const std::pair key(query.value(0).toInt(), query.value(1).toInt());
        values.try_emplace(key, query.value(2).toDouble()); // the first row of a pair counts
    }
    if (query.lastError().isValid()) // the rows ended too early
        FailStatement(FailureKind::DatabaseNotOpen, query.lastError());
    return values;
}

std::optional<double> DatabaseFTable::Find(std::int16_t gdl1, std::int16_t gdl2)
{
    std::call_once(m_read, [this] { m_values = Read(); }); // a reading that fails does not count
    const auto found = m_values.find({gdl1, gdl2});
    return found == m_values.end() ? std::nullopt : std::optional(found->second);
}
