// Reads a data file from its start to its end: fields, which a comma or a line end closes, and whole lines.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QFile>
#include <QString>

#include <optional>

/// CR LF, a lone CR and a lone LF each end a line; a quotation mark is a character like any other.
class DataFileReader
{
public:
    /// Opens the file. Fails: FileNotFound, PathAccess (a folder or a device), PermissionDenied.
    explicit DataFileReader(const QString& fileName);

    /// The next field, without the blanks in front of it, valid until the next reading.
    /// Fails: EndOfFile when only blanks are left; Overflow for a field of more than kLongestText bytes;
    /// DeviceError.
    QByteArrayView ReadField();

    /// The rest of the line, in Windows-1252. Fails: EndOfFile at the end of the file; Overflow and
    /// DeviceError as above.
    QString ReadLine();

    /// The number, from 1, of the line in which the last reading began.
    int Line() const { return m_line; }
    /// What the last reading found; nothing where the file ended.
    std::optional<QString> Found() const;

    static constexpr qsizetype kLongestText = 1 << 20;

private:
    void Begin();
    bool ReadMore();
    QByteArrayView Take(const char* terminators);
    void PassLineEnd();

    QFile m_file;
    QByteArray m_buffer;
    qsizetype m_block = 0;
    qsizetype m_at = 0;
    int m_line = 1;
    int m_linesEnded = 0;
    qsizetype m_foundAt = 0;
    std::optional<qsizetype> m_foundLength;
};
