// Writes one JSON value into a buffer, in the order in which it is told.
#pragma once

#include <QByteArray>
#include <QLatin1StringView>
#include <QStringView>

class JsonWriter
{
public:
    void BeginObject() { Begin('{'); }
    void EndObject() { End('}'); }
    void BeginList() { Begin('['); }
    void EndList() { End(']'); }
    /// The next value belongs to this key of the object.
    void Key(QLatin1StringView key);

    void Text(QStringView text);
    /// ASCII without quotation marks and backslashes.
    void Text(QLatin1StringView text);
    void Number(int number);
    /// As many digits as read back to the same double.
    void Number(double number);
    void Bool(bool value);
    void Null();

    const QByteArray& Bytes() const { return m_bytes; }

private:
    void Begin(char bracket);
    void End(char bracket);
    void Separate();
    void AppendEscaped(const QByteArray& utf8);

    QByteArray m_bytes;
    bool m_first = true;
};
