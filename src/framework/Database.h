// The local database, an SQLite file. All SQL of the program stands here.
#pragma once

#include "stats/CriticalValues.h"

#include <QString>

#include <map>
#include <mutex>
#include <utility>

/// The table TabF of a database file, read as a whole when it is first asked for and kept.
/// May be asked from several threads.
class DatabaseFTable : public FTable
{
public:
    explicit DatabaseFTable(QString dbFile);

    /// Fails with DatabaseNotOpen or TableNotFound, each time that the table could not be read.
    std::optional<double> Find(std::int16_t gdl1, std::int16_t gdl2) override;

private:
    void Read();

    QString m_dbFile;
    std::mutex m_mutex;
    bool m_read = false;
    std::map<std::pair<int, int>, double> m_values;
};
