// The writer that the companion had before RapidJSON's, for JsonBench.
#pragma once

#include <QByteArray>
#include <QStringView>

#include <array>
#include <charconv>

class OwnJsonWriter
{
public:
    void BeginObject() { Begin('{'); }
    void EndObject() { End('}'); }
    void BeginList() { Begin('['); }
    void EndList() { End(']'); }
    void Key(QLatin1StringView key)
    {
        Separate();
        m_bytes.append('"').append(key.data(), key.size()).append("\":");
        m_first = true;
    }
    void Text(QStringView text)
    {
        Separate();
        m_bytes += '"';
        AppendEscaped(text.toUtf8());
        m_bytes += '"';
    }
    void Number(double number)
    {
        Separate();
        std::array<char, 32> text;
        const auto end = std::to_chars(text.data(), text.data() + text.size(), number);
        m_bytes.append(text.data(), end.ptr - text.data());
    }
    void Bool(bool value)
    {
        Separate();
        m_bytes += value ? "true" : "false";
    }
    void Null()
    {
        Separate();
        m_bytes += "null";
    }
    const QByteArray& Bytes() const { return m_bytes; }

private:
    void Separate()
    {
        if (!m_first)
            m_bytes += ',';
        m_first = false;
    }
    void Begin(char bracket)
    {
        Separate();
        m_bytes += bracket;
        m_first = true;
    }
    void End(char bracket)
    {
        m_bytes += bracket;
        m_first = false;
    }
    void AppendEscaped(const QByteArray& utf8)
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

    QByteArray m_bytes;
    bool m_first = true;
};
