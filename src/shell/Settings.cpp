#include "shell/Settings.h"

#include "framework/files/SafeFile.h"
#include "stats/RuntimeFailure.h"

#include <QByteArray>
#include <QFile>
#include <QList>

#include <algorithm>
#include <optional>

namespace
{

/// The buffer of a value holds 1000 characters, the last of which ends it.
constexpr qsizetype kLongestValue = 999;

/// The lines with their line ends.
QList<QByteArray> LinesOf(const QByteArray& bytes)
{
    QList<QByteArray> lines;
    for (qsizetype at = 0; at < bytes.size();) {
        const qsizetype end = bytes.indexOf('\n', at);
        const qsizetype next = end < 0 ? bytes.size() : end + 1;
        lines.append(bytes.mid(at, next - at));
        at = next;
    }
    return lines;
}

/// No lines where there is no file; nothing where there is one that can't be read to its end.
std::optional<QList<QByteArray>> ReadLines(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return file.exists() ? std::nullopt : std::optional(QList<QByteArray>());
    const QByteArray bytes = file.readAll();
    return file.error() == QFileDevice::NoError && bytes.size() >= file.size() ? std::optional(LinesOf(bytes))
                                                                               : std::nullopt;
}

/// Without the mark with which some editors begin a file.
QByteArray Trimmed(const QByteArray& line)
{
    return (line.startsWith("\xef\xbb\xbf") ? line.sliced(3) : line).trimmed();
}

bool Same(const QByteArray& name, const QString& wanted)
{
    return QString::fromUtf8(name.trimmed()).compare(wanted, Qt::CaseInsensitive) == 0;
}

/// The name in brackets, or nothing.
std::optional<QByteArray> SectionOf(const QByteArray& line)
{
    const QByteArray text = Trimmed(line);
    const qsizetype end = text.indexOf(']');
    return text.startsWith('[') && end > 0 ? std::optional(text.sliced(1, end - 1)) : std::nullopt;
}

/// The first section of this name: its lines run from first up to, but not including, end.
struct Section {
    qsizetype first = 0;
    qsizetype end = 0;
};

std::optional<Section> FindSection(const QList<QByteArray>& lines, const QString& name)
{
    const auto isSection = [](const QByteArray& line) { return SectionOf(line).has_value(); };
    const auto head = std::ranges::find_if(lines, [&](const QByteArray& line) {
        const auto section = SectionOf(line);
        return section && Same(*section, name);
    });
    if (head == lines.end())
        return std::nullopt;
    const auto end = std::find_if(head + 1, lines.end(), isSection);
    return Section{head - lines.begin() + 1, end - lines.begin()};
}

/// The place of the key's line in the section, or nothing.
std::optional<qsizetype> FindKey(const QList<QByteArray>& lines, const Section& section, const QString& key)
{
    for (qsizetype i = section.first; i < section.end; ++i) {
        const QByteArray text = Trimmed(lines[i]);
        const qsizetype equals = text.indexOf('=');
        if (equals > 0 && Same(text.first(equals), key)) // a commented key has another name
            return i;
    }
    return std::nullopt;
}

/// What stands behind the equals sign, without blanks and without the quotation marks around it.
QString ValueOf(const QByteArray& line)
{
    const QByteArray text = Trimmed(line);
    QByteArray value = text.sliced(text.indexOf('=') + 1).trimmed();
    if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front())
        value = value.sliced(1, value.size() - 2);
    return QString::fromUtf8(value);
}

/// Where a new key of the section goes: behind its last line that is not blank.
qsizetype EndOfText(const QList<QByteArray>& lines, const Section& section)
{
    qsizetype at = section.end;
    while (at > section.first && lines[at - 1].trimmed().isEmpty())
        --at;
    return at;
}

QString WithoutControls(const QString& text)
{
    QString clean = text.trimmed();
    erase_if(clean, [](QChar c) { return c.unicode() <= 31; });
    return clean;
}

} // namespace

QString IniManager::GetValue(const QString& keyName, const QString& strDefault) const
{
    const QList<QByteArray> lines = ReadLines(m_fileName).value_or(QList<QByteArray>());
    const auto section = FindSection(lines, m_applicationKey);
    const auto at = section ? FindKey(lines, *section, keyName) : std::nullopt;
    QString value = at ? ValueOf(lines[*at]) : QString();
    if (value.isEmpty())
        value = strDefault;
    value.truncate(kLongestValue);
    if (value.isEmpty()) {
        const QString text = QStringLiteral("Errore nella lettura della chiave %1").arg(keyName);
        throw RuntimeFailure(FailureKind::IniKey, text.toStdString());
    }
    return WithoutControls(value);
}

bool IniManager::SetValue(const QString& keyName, const QString& strValue) const
{
    if (std::ranges::any_of(strValue, [](QChar c) { return c.unicode() <= 31; }))
        return false;
    const auto read = ReadLines(m_fileName);
    if (!read) // what could not be read would be lost
        return false;
    QList<QByteArray> lines = *read;
    const QByteArray end = !lines.isEmpty() && lines.front().endsWith("\r\n") ? "\r\n" : "\n";
    if (!lines.isEmpty() && !lines.back().endsWith('\n'))
        lines.back() += end;
    const QByteArray line = keyName.toUtf8() + '=' + strValue.toUtf8() + end;
    if (const auto section = FindSection(lines, m_applicationKey)) {
        if (const auto at = FindKey(lines, *section, keyName))
            lines[*at] = line;
        else
            lines.insert(EndOfText(lines, *section), line);
    } else {
        lines << '[' + m_applicationKey.toUtf8() + ']' + end << line;
    }
    try {
        WriteSafeFile(m_fileName, lines.join());
    } catch (const RuntimeFailure&) {
        return false;
    }
    return true;
}

void WriteDefaultSettings(const QString& fileName)
{
    WriteSafeFile(fileName, "[Percorsi]\nOpenSave=0\nBackup=0\n[Parametri]\nBkAutoSave=0\n");
}
