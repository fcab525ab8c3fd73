#include "framework/Database.h"

#include "stats/RuntimeFailure.h"

#include <QFileInfo>
#include <QScopeGuard>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace
{

/// A connection of its own for one operation, read only, closed and removed at its end.
class ReadConnection
{
public:
    explicit ReadConnection(const QString& dbFile) : m_name(QUuid::createUuid().toString())
    {
        m_database = QSqlDatabase::addDatabase(u"QSQLITE"_s, m_name);
        m_database.setDatabaseName(dbFile);
        m_database.setConnectOptions(u"QSQLITE_OPEN_READONLY"_s);
        if (!QFileInfo(dbFile).isFile() || !m_database.open()) {
            Remove();
            throw RuntimeFailure(FailureKind::DatabaseNotOpen);
        }
    }
    ~ReadConnection() { Remove(); }
    Q_DISABLE_COPY_MOVE(ReadConnection)

    const QSqlDatabase& Database() const { return m_database; }

private:
    void Remove()
    {
        m_database = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_name);
    }

    QString m_name;
    QSqlDatabase m_database;
};

} // namespace

DatabaseFTable::DatabaseFTable(QString dbFile) : m_dbFile(std::move(dbFile)) {}

void DatabaseFTable::Read()
{
    const ReadConnection connection(m_dbFile);
    QSqlQuery query(connection.Database());
    query.setForwardOnly(true);
    if (!query.exec(u"SELECT GDL_1, GDL_2, VAL_F FROM TabF"_s))
        throw RuntimeFailure(FailureKind::TableNotFound);
    while (query.next()) {
        const std::pair key(query.value(0).toInt(), query.value(1).toInt());
        m_values.try_emplace(key, query.value(2).toDouble()); // the first row of a pair counts
    }
    m_read = true;
}

std::optional<double> DatabaseFTable::Find(std::int16_t gdl1, std::int16_t gdl2)
{
    const std::scoped_lock lock(m_mutex);
    if (!m_read)
        Read();
    const auto found = m_values.find({gdl1, gdl2});
    return found == m_values.end() ? std::nullopt : std::optional(found->second);
}
