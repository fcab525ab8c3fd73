#include "framework/files/DataFileReader.h"

#include "framework/files/CodePage.h"
#include "stats/RuntimeFailure.h"

#include <QFileInfo>

#include <algorithm>
#include <cstring>

namespace
{
constexpr qsizetype kLargestBlock = 1 << 16;
} // namespace

DataFileReader::DataFileReader(const QString& fileName) : m_file(fileName)
{
    const QFileInfo info(fileName);
    if (!info.exists())
        throw RuntimeFailure(FailureKind::FileNotFound);
    if (!info.isFile())
        throw RuntimeFailure(FailureKind::PathAccess);
    if (!m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw RuntimeFailure(FailureKind::PermissionDenied);
    // One byte more than the file holds: the first reading of a usual document also meets its end.
    m_block = std::clamp<qsizetype>(info.size() + 1, 64, kLargestBlock);
}

bool DataFileReader::ReadMore()
{
    m_buffer.remove(0, m_at);
    m_at = 0;
    const qsizetype held = m_buffer.size();
    if (held > kLongestText)
        throw RuntimeFailure(FailureKind::Overflow);
    m_buffer.resize(held + m_block);
    const qint64 count = m_file.read(m_buffer.data() + held, m_block);
    m_buffer.resize(held + std::max<qint64>(count, 0));
    if (count < 0)
        throw RuntimeFailure(FailureKind::DeviceError);
    return count > 0;
}

/// The bytes up to one of the terminators or the end of the file; the terminator is passed over.
QByteArrayView DataFileReader::Take(const char* terminators)
{
    const qsizetype count = static_cast<qsizetype>(std::strlen(terminators));
    qsizetype scanned = 0;
    while (true) {
        const char* const begin = m_buffer.constData() + m_at;
        const char* const end = m_buffer.constData() + m_buffer.size();
        const char* const stop = std::find_first_of(begin + scanned, end, terminators, terminators + count);
        // A CR needs the character behind it, to tell whether the two are one line end.
        const bool decided = stop != end && (*stop != '\r' || stop + 1 != end);
        if (!decided) {
            scanned = stop - begin;
            if (ReadMore())
                continue;
        }
        const char* const start = m_buffer.constData() + m_at;
        const qsizetype length = decided ? stop - begin : scanned;
        m_at += length;
        m_foundAt = m_at - length;
        m_foundLength = length;
        PassLineEnd();
        return {start, length};
    }
}

void DataFileReader::PassLineEnd()
{
    if (m_at == m_buffer.size())
        return;
    const char terminator = m_buffer[m_at++];
    if (terminator == ',')
        return;
    ++m_linesEnded;
    if (terminator == '\r' && m_at < m_buffer.size() && m_buffer[m_at] == '\n')
        ++m_at;
}

void DataFileReader::Begin()
{
    m_line = m_linesEnded + 1;
    m_foundLength.reset();
}

std::optional<QString> DataFileReader::Found() const
{
    if (!m_foundLength)
        return std::nullopt;
    return FromCodePage(QByteArrayView(m_buffer).sliced(m_foundAt, *m_foundLength));
}

QByteArrayView DataFileReader::ReadField()
{
    Begin();
    while (true) {
        while (m_at < m_buffer.size() && m_buffer[m_at] == ' ')
            ++m_at;
        if (m_at < m_buffer.size())
            break;
        if (!ReadMore())
            throw RuntimeFailure(FailureKind::EndOfFile);
    }
    return Take(",\r\n");
}

QString DataFileReader::ReadLine()
{
    Begin();
    if (m_at == m_buffer.size() && !ReadMore())
        throw RuntimeFailure(FailureKind::EndOfFile);
    return FromCodePage(Take("\r\n"));
}
