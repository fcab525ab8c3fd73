#include "batch/Outcome.h"

#include "batch/JsonOutput.h"
#include "framework/document/CommonDialog.h"
#include "framework/document/Define.h"
#include "framework/document/DocumentLife.h"
#include "framework/document/TestDocument.h"
#include "framework/document/TestRegistry.h"
#include "framework/text/TextFunctions.h"
#include "stats/CriticalValues.h"
#include "stats/RuntimeFailure.h"
#include "validation/DocumentFactory.h"

#include <QFileInfo>

#include <memory>

using namespace Qt::StringLiterals;

namespace
{

/// Nobody is there to choose a file.
class NoDialog : public CommonDialog
{
public:
    bool ShowOpen() override { return false; }
    bool ShowSave() override { return false; }
    QString BrowseFolder(const QString&, const QString&) override { return {}; }
};

class MessageCollector : public Messages
{
public:
    void Show(MessageIcon icon, const QString& title, const QString& text) override
    {
        m_collected.append({icon, title, text});
    }
    Answer Ask(MessageIcon icon, const QString& title, const QString& text) override
    {
        Show(icon, title, text);
        return Answer::Cancel;
    }
    const QList<CollectedMessage>& Collected() const { return m_collected; }

private:
    QList<CollectedMessage> m_collected;
};

/// A document with global values of its own: those of another one never reach it.
class LoneDocument
{
public:
    LoneDocument(const TestInfo& info, const QString& decSep, FTable& fTable)
    {
        m_define.DecSep = decSep;
        m_document = CreateDocument(info.key, {m_define, m_dialog, m_messages, fTable});
    }
    Q_DISABLE_COPY_MOVE(LoneDocument)

    /// Null for a test that the program does not have.
    TestDocument* Get() { return m_document.get(); }
    const QList<CollectedMessage>& Messages() const { return m_messages.Collected(); }

private:
    Define m_define;
    NoDialog m_dialog;
    MessageCollector m_messages;
    std::unique_ptr<TestDocument> m_document;
};

/// Why a calculation gave no results, in the companion's words.
QString EndText(CalcEnd end, const QList<CollectedMessage>& messages)
{
    switch (end) {
    case CalcEnd::SumIsZero:
        return u"la somma dei valori è zero"_s;
    case CalcEnd::Refused:
        return messages.constLast().text.simplified();
    case CalcEnd::Done:
        break;
    }
    return {};
}

/// Why the document was not read whole and calculated, or empty.
QString ComplaintOf(const TestDocument& document, const LoadOutcome& outcome,
                    const QList<CollectedMessage>& messages)
{
    switch (document.HowRead()) {
    case FileRead::NotAtAll:
        return FailureText(*outcome.reading);
    case FileRead::InPart:
        return u"letto in parte, fino alla riga %1: %2"_s.arg(document.ReadStop())
            .arg(FailureText(*outcome.reading));
    case FileRead::Whole:
        break;
    }
    if (outcome.Calculated())
        return {};
    return u"non calcolato: %1"_s.arg(outcome.calculation ? FailureText(*outcome.calculation)
                                                          : EndText(*outcome.end, messages));
}

void Rewrite(Outcome& outcome, const TestDocument& document)
{
    try {
        outcome.rewritten = document.FileBytes();
    } catch (const RuntimeFailure& failure) {
        outcome.notRewritten = FailureText(failure);
    }
}

} // namespace

Outcome Compute(const QString& file, const CommandLine& line, FTable& fTable)
{
    Outcome outcome;
    outcome.file = file;
    const TestInfo* info = FindTestOfFile(QFileInfo(file).fileName());
    if (info == nullptr) {
        outcome.complaint = u"non è un file di dati"_s;
        return outcome;
    }
    LoneDocument lone(*info, line.decSep, fTable);
    if (lone.Get() == nullptr) {
        outcome.complaint = u"i file di tipo %1 non sono ancora gestiti"_s.arg(info->extension);
        return outcome;
    }
    TestDocument& document = *lone.Get();
    const LoadOutcome loaded = LoadDocument(document, file);
    document.SetLanGraf(line.language);
    outcome.complaint = ComplaintOf(document, loaded, lone.Messages());
    const BatchResult result{file, document, loaded, lone.Messages()};
    if (document.HowRead() != FileRead::NotAtAll)
        outcome.printed = line.json ? JsonLine(result, line.chartData) : Summary(result);
    outcome.writes = !line.chartDir.isEmpty() || !line.rewriteDir.isEmpty();
    if (!line.chartDir.isEmpty() && loaded.Calculated())
        outcome.charts = document.ShownCharts();
    if (!line.rewriteDir.isEmpty() && document.HowRead() == FileRead::Whole)
        Rewrite(outcome, document);
    return outcome;
}
