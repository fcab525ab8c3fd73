// Each document of tests/data/documents as the companion reads, calculates, prints and saves it, against what
// a recalculation apart from the program says of it (tests/data/README.md).
#include "TestWorld.h"
#include "batch/Outcome.h"
#include "framework/files/Database.h"

#include <QDir>
#include <QStringEncoder>

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

using namespace Qt::StringLiterals;
using rapidjson::Value;

namespace
{

rapidjson::Document Parsed(const QByteArray& json)
{
    rapidjson::Document document;
    document.Parse<rapidjson::kParseFullPrecisionFlag>(json.constData(),
                                                       static_cast<std::size_t>(json.size()));
    return document;
}

QString Told(const Value& value)
{
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
    value.Accept(writer);
    return QString::fromUtf8(buffer.GetString()).left(600);
}

/// Collects where one JSON value is not the other.
class Comparison
{
public:
    explicit Comparison(double within) : m_within(within) {}
    const QStringList& Differences() const { return m_differences; }

    void Compare(const QString& path, const Value& expected, const Value& actual)
    {
        if (expected.IsObject() && actual.IsArray())
            CompareSample(path, expected, actual);
        else if (expected.IsObject() && actual.IsObject() && Keys(expected) == Keys(actual))
            for (auto one = expected.MemberBegin(), other = actual.MemberBegin(); one != expected.MemberEnd();
                 ++one, ++other)
                Compare(path + u'/' + QString::fromUtf8(one->name.GetString()), one->value, other->value);
        else if (expected.IsArray() && actual.IsArray() && expected.Size() == actual.Size())
            for (unsigned place = 0; place < expected.Size(); ++place)
                Compare(path + u'/' + QString::number(place), expected[place], actual[place]);
        else if (expected.IsNumber() && actual.IsNumber()
                     ? !IsClose(actual.GetDouble(), expected.GetDouble(), m_within)
                     : expected != actual)
            m_differences += path + u":\n  expected "_s + Told(expected) + u"\n  actual   "_s + Told(actual);
    }

private:
    static QStringList Keys(const Value& object)
    {
        QStringList keys;
        for (const auto& member : object.GetObject())
            keys += QString::fromUtf8(member.name.GetString());
        return keys;
    }

    /// A long list of rows: how many there are, the sums of the columns, and some rows by their numbers from
    /// 1 on.
    void CompareSample(const QString& path, const Value& expected, const Value& rows)
    {
        rapidjson::Document actual(rapidjson::kObjectType);
        auto& memory = actual.GetAllocator();
        for (const auto& member : expected.GetObject()) {
            const unsigned row = QByteArray(member.name.GetString()).toUInt();
            Value value(rows.Size());
            if (member.name == "sums") {
                double sums[2] = {};
                for (const auto& each : rows.GetArray())
                    for (unsigned column : {0U, 1U})
                        sums[column] += each[column].GetDouble();
                value.SetArray().PushBack(sums[0], memory).PushBack(sums[1], memory);
            } else if (row >= 1 && row <= rows.Size()) {
                value.CopyFrom(rows[row - 1], memory);
            }
            actual.AddMember(Value(member.name, memory), value, memory);
        }
        Compare(path, expected, actual);
    }

    double m_within;
    QStringList m_differences;
};

QStringList DocumentNames()
{
    return QDir(DataFile({}))
        .entryList({u"*.LIM"_s, u"*.PRE"_s, u"*.SPC"_s, u"*.TAR"_s}, QDir::Files, QDir::Name);
}

/// The bytes that the saved lines stand for.
QByteArray BytesOf(const Value& lines)
{
    QStringEncoder windows("windows-1252");
    QByteArray bytes;
    for (const auto& line : lines.GetArray())
        bytes += windows.encode(QString::fromUtf8(line.GetString()) + u"\r\n"_s);
    return bytes;
}

} // namespace

class DocumentsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { FailOnWarnings(); }

    void EachDocumentHasItsExpectation()
    {
        QStringList expected = DocumentNames();
        QVERIFY(expected.size() > 30);
        for (QString& name : expected)
            name += u".json"_s;
        QCOMPARE(QDir(DataFile(u"expected"_s)).entryList(QDir::Files, QDir::Name), expected);
    }

    void Document_data()
    {
        QTest::addColumn<QString>("name");
        for (const QString& name : DocumentNames())
            QTest::addRow("%s", qPrintable(name)) << name;
    }

    void Document()
    {
        QFETCH(QString, name);
        DatabaseFTable table(QStringLiteral(QUOREL_TEST_PROGRAM "/DB/QUOREL73.MDB"));
        rapidjson::Document expectation = Parsed(::BytesOf(DataFile(u"expected/%1.json"_s.arg(name))));
        QVERIFY(expectation.IsObject());
        auto& memory = expectation.GetAllocator();
        Comparison comparison(expectation["within"].GetDouble());
        for (const QString& way : {u"it,"_s, u"it."_s, u"en,"_s, u"en."_s}) {
            CommandLine line;
            line.json = line.chartData = true;
            line.language = way.startsWith(u"it") ? Language::Italian : Language::English;
            line.decSep = way.last(1);
            line.rewriteDir = u"."_s; // the bytes are asked for; nobody writes them
            const Outcome outcome = Compute(DataFile(name), line, table);

            Value expected(rapidjson::kObjectType);
            expected.AddMember("file", Value(DataFile(name).toUtf8().constData(), memory), memory);
            for (const auto& member : expectation["it,"].GetObject())
                expected.AddMember(Value(member.name, memory), Value(member.value, memory), memory);
            const auto replace = [&](const Value& members) {
                for (const auto& member : members.GetObject())
                    expected[member.name].CopyFrom(member.value, memory);
            };
            if (way.endsWith(u'.'))
                replace(expectation["it."]);
            if (way.startsWith(u"en"))
                replace(expectation["en,"]);
            QCOMPARE(outcome.printed.count('\n'), 1);
            comparison.Compare(way, expected, Parsed(outcome.printed));

            if (expectation["saved"].IsArray())
                QCOMPARE(outcome.rewritten, BytesOf(expectation["saved"]));
            else if (expectation["saved"] == "the same")
                QCOMPARE(outcome.rewritten, ::BytesOf(DataFile(name)));
            else
                QVERIFY(!outcome.rewritten);
        }
        QVERIFY2(comparison.Differences().isEmpty(), qPrintable(comparison.Differences().join(u'\n')));
    }
};

QTEST_GUILESS_MAIN(DocumentsTest)
#include "DocumentsTest.moc"
