#include "batch/JsonWriter.h"

#include <array>
#include <charconv>

void JsonWriter::Separate()
{
    if (!m_first)
        m_bytes += ',';
    m_first = false;
}

void JsonWriter::Begin(char bracket)
{
    Separate();
    m_bytes += bracket;
    m_first = true;
}

void JsonWriter::End(char bracket)
{
    m_bytes += bracket;
    m_first = false;
}

void JsonWriter::Key(QLatin1StringView key)
{
    Text(key);
    m_bytes += ':';
    m_first = true;
}

void JsonWriter::Text(QLatin1StringView text)
{
    Separate();
    m_bytes.append('"').append(text.data(), text.size()).append('"');
}

void JsonWriter::Text(QStringView text)
{
    Separate();
    m_bytes += '"';
    AppendEscaped(text.toUtf8());
    m_bytes += '"';
}

void JsonWriter::Number(int number)
{
    Separate();
    m_bytes += QByteArray::number(number);
}

void JsonWriter::Number(double number)
{
    Separate();
    std::array<char, 32> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number);
    m_bytes.append(text.data(), end.ptr - text.data());
}

void JsonWriter::Bool(bool value)
{
    Separate();
    m_bytes += value ? "true" : "false";
}

void JsonWriter::Null()
{
    Separate();
    m_bytes += "null";
}

void JsonWriter::AppendEscaped(const QByteArray& utf8)
{
    for (const char c : utf8) {
        if (c == '"' || c == '\\')
            m_bytes.append('\\').append(c);
        else if (c == '\r')
            m_bytes += "\\r";
        else if (c == '\n')
            m_bytes += "\\n";
        else if (static_cast<unsigned char>(c) < 0x20 || c == 0x7f)
            m_bytes += "\\u00" + QByteArray::number(c, 16).rightJustified(2, '0');
        else
            m_bytes += c;
    }
}
