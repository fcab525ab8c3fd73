// The JSON writer alone, beside the one that it replaced: the same steps told to either.
#include "LimiFile.h"
#include "Nobody.h"
#include "OwnJsonWriter.h"
#include "batch/JsonOutput.h"
#include "batch/JsonWriter.h"
#include "framework/text/TextFunctions.h"
#include "validation/DocumentFactory.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace
{

/// What a writer is told: a value, or a bracket, and the key before it.
struct Step {
    enum class Kind { BeginObject, EndObject, BeginList, EndList, Text, Number, Bool, Null };
    Kind kind;
    QByteArray key = {};
    QString text = {};
    double number = 0;
};
using Steps = std::vector<Step>;

void AddSteps(Steps& steps, const QByteArray& key, const QJsonValue& value)
{
    switch (value.type()) {
    case QJsonValue::Object: {
        steps.push_back({Step::Kind::BeginObject, key});
        const QJsonObject object = value.toObject();
        for (auto member = object.begin(); member != object.end(); ++member)
            AddSteps(steps, member.key().toLatin1(), member.value());
        steps.push_back({Step::Kind::EndObject});
        break;
    }
    case QJsonValue::Array: {
        steps.push_back({Step::Kind::BeginList, key});
        const QJsonArray list = value.toArray();
        for (const QJsonValue held : list)
            AddSteps(steps, {}, held);
        steps.push_back({Step::Kind::EndList});
        break;
    }
    case QJsonValue::String:
        steps.push_back({Step::Kind::Text, key, value.toString()});
        break;
    case QJsonValue::Double:
        steps.push_back({Step::Kind::Number, key, {}, value.toDouble()});
        break;
    case QJsonValue::Bool:
        steps.push_back({Step::Kind::Bool, key, {}, value.toBool() ? 1.0 : 0.0});
        break;
    default:
        steps.push_back({Step::Kind::Null, key});
    }
}

/// What writes the JSON of this file.
Steps StepsOf(const QString& file, bool chartData)
{
    Define define;
    Nobody nobody;
    const auto document = CreateDocument(FindTestOfFile(file)->key, {define, nobody, nobody, nobody});
    const LoadOutcome outcome = LoadDocument(*document, file);
    if (!outcome.Calculated())
        qFatal("not calculated");
    const QByteArray line = JsonLine(BatchResult{file, *document, outcome, {}}, chartData);
    Steps steps;
    AddSteps(steps, {}, QJsonDocument::fromJson(line).object());
    return steps;
}

template<typename Writer>
QByteArray Written(const Steps& steps)
{
    Writer json;
    for (const Step& step : steps) {
        if (!step.key.isEmpty())
            json.Key(QLatin1StringView(step.key));
        switch (step.kind) {
        case Step::Kind::BeginObject:
            json.BeginObject();
            break;
        case Step::Kind::EndObject:
            json.EndObject();
            break;
        case Step::Kind::BeginList:
            json.BeginList();
            break;
        case Step::Kind::EndList:
            json.EndList();
            break;
        case Step::Kind::Text:
            json.Text(step.text);
            break;
        case Step::Kind::Number:
            json.Number(step.number);
            break;
        case Step::Kind::Bool:
            json.Bool(step.number != 0);
            break;
        case Step::Kind::Null:
            json.Null();
            break;
        }
    }
    return json.Bytes();
}

template<typename Writer>
void Write(benchmark::State& state, const Steps& steps)
{
    qsizetype written = 0;
    for (auto _ : state) {
        const QByteArray json = Written<Writer>(steps);
        benchmark::DoNotOptimize(json.constData());
        written += json.size();
    }
    state.SetBytesProcessed(written);
}

void Compare(const std::string& name, const Steps& steps)
{
    if (Written<JsonWriter>(steps) != Written<OwnJsonWriter>(steps))
        qFatal("the writers differ");
    benchmark::RegisterBenchmark(("RapidJson/" + name).c_str(), Write<JsonWriter>, steps);
    benchmark::RegisterBenchmark(("Own/" + name).c_str(), Write<OwnJsonWriter>, steps);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    const QTemporaryDir folder;
    Compare("UsualDocument", StepsOf(QStringLiteral(QUOREL_SAMPLES "/Caffeina.LIM"), false));
    Compare("WithChart", StepsOf(QStringLiteral(QUOREL_SAMPLES "/Acido citrico.PRE"), true));
    Compare("32767Rows", StepsOf(LimiFile(folder, 32767), false));
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
