// Writes one JSON value into a buffer, in the order in which it is told.
#pragma once

#include <QByteArray>
#include <QLatin1StringView>
#include <QStringView>

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

class JsonWriter
{
public:
    void BeginObject() { m_writer.StartObject(); }
    void EndObject() { m_writer.EndObject(); }
    void BeginList() { m_writer.StartArray(); }
    void EndList() { m_writer.EndArray(); }
    /// The next value belongs to this key of the object.
    void Key(QLatin1StringView key) { Text(key); }

    /// Control characters, quotation marks and backslashes are escaped, all others stand as UTF-8.
    void Text(QStringView text);
    /// ASCII without quotation marks and backslashes.
    void Text(QLatin1StringView text);
    void Number(int number) { m_writer.Int(number); }
    /// As many digits as read back to the same double.
    void Number(double number);
    void Bool(bool value) { m_writer.Bool(value); }
    void Null() { m_writer.Null(); }

    /// The value so far.
    QByteArray Bytes() const;

private:
    rapidjson::StringBuffer m_bytes;
    rapidjson::Writer<rapidjson::StringBuffer> m_writer{m_bytes};
};
