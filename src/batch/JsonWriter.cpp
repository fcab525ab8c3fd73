#include "batch/JsonWriter.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace
{

bool IsControl(char c)
{
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7f;
}

/// RapidJSON has other escapes for these (`\t`, `\u001F`) or none (0x7f).
bool IsSpelledHere(char c)
{
    return IsControl(c) && c != '\r' && c != '\n';
}

/// The text as a JSON string, for the few that RapidJSON would spell otherwise.
QByteArray Spelled(const QByteArray& utf8)
{
    QByteArray json = "\"";
    for (const char c : utf8) {
        if (c == '"' || c == '\\')
            json.append('\\').append(c);
        else if (c == '\r')
            json += "\\r";
        else if (c == '\n')
            json += "\\n";
        else if (IsControl(c))
            json += "\\u00" + QByteArray::number(c, 16).rightJustified(2, '0');
        else
            json += c;
    }
    return json + '"';
}

} // namespace

void JsonWriter::Text(QStringView text)
{
    const QByteArray utf8 = text.toUtf8();
    if (std::ranges::any_of(utf8, IsSpelledHere)) {
        const QByteArray json = Spelled(utf8);
        m_writer.RawValue(json.constData(), json.size(), rapidjson::kStringType);
    } else {
        m_writer.String(utf8.constData(), static_cast<rapidjson::SizeType>(utf8.size()));
    }
}

void JsonWriter::Text(QLatin1StringView text)
{
    m_writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
}

void JsonWriter::Number(double number)
{
    std::array<char, 32> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number);
    m_writer.RawValue(text.data(), static_cast<std::size_t>(end.ptr - text.data()), rapidjson::kNumberType);
}

QByteArray JsonWriter::Bytes() const
{
    return {m_bytes.GetString(), static_cast<qsizetype>(m_bytes.GetSize())};
}
