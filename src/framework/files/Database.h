// The local database, an SQLite file. All SQL of the program stands here. Each operation opens the file, uses
// it and closes it.
#pragma once

#include "stats/CriticalValues.h"

#include <QLatin1StringView>
#include <QString>

#include <array>
#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <utility>

/// The company data, the one record of the table Anagrafica. A field that is null in the table reads as
/// empty.
struct Company {
    static constexpr std::size_t kTexts = 10;
    static constexpr int kLongestText = 50; ///< characters
    /// The names of the text fields, in the order of the table.
    static constexpr std::array<QLatin1StringView, kTexts> kFields = {
        QLatin1StringView("AZIENDA"), QLatin1StringView("TITOLARE"), QLatin1StringView("RESPONSABILECHIMICO"),
        QLatin1StringView("VIA"),     QLatin1StringView("CITTA"),    QLatin1StringView("CAP"),
        QLatin1StringView("TEL"),     QLatin1StringView("FAX"),      QLatin1StringView("EMAIL"),
        QLatin1StringView("INTERNET")};

    std::array<QString, kTexts> texts;
    QString logoPath;
    bool noLogo = false;
};

/// Fails: DatabaseNotOpen for a file that is missing, locked or no database, TableNotFound without the table
/// or its record. The text tells the reason, in Italian where it is one of the usual ones.
Company ReadCompany(const QString& dbFile);

/// Changes the one record. Fails as ReadCompany does, with DatabaseNotWritten when the file can't be written,
/// and with FieldTooSmall for a text that is longer than its field; the text names the field then.
void WriteCompany(const QString& dbFile, const Company& company);

/// The table TabF of a database file, read as a whole when it is first asked for and kept.
/// May be asked from several threads.
class DatabaseFTable : public FTable
{
public:
    explicit DatabaseFTable(QString dbFile);

    /// Fails with DatabaseNotOpen or TableNotFound, each time that the table could not be read.
    std::optional<double> Find(std::int16_t gdl1, std::int16_t gdl2) override;

private:
    using Values = std::map<std::pair<int, int>, double>;
    Values Read() const;

    QString m_dbFile;
    std::once_flag m_read;
    Values m_values; ///< nothing changes them once they were read
};
