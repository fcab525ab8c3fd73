#include "framework/document/DocumentLife.h"

#include "framework/document/CommonDialog.h"
#include "framework/document/Define.h"
#include "framework/document/DocumentContext.h"
#include "framework/document/TestRegistry.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace
{

/// The dirty test of New and Close, which keeps its answer in the document's own flag, and the question.
/// False when the document has to stay: cancelled, or to be saved and not saved.
bool MayBeLost(TestDocument& document)
{
    document.SetIsModify(document.IsModify() || document.ChangeMade());
    const Answer answer = AskSaveChanges(document.IsModify(), document.Context());
    if (answer == Answer::Yes)
        SaveDocument(document);
    return answer != Answer::Cancel && !(answer == Answer::Yes && document.IsModify());
}

void TellSaveFailure(const TestDocument& document, const QString& fileName, const RuntimeFailure& failure)
{
    document.Context().messages.Show(MessageIcon::Critical, document.Context().define.AppTitle,
                                     NotSavedText(u"Il documento"_s, fileName, failure));
}

/// Writes to the name that the dialog holds. `former` is the name to go back to when the writing fails.
void WriteDocument(TestDocument& document, const QString& former)
{
    CommonDialog& dialog = document.Context().dialog;
    std::optional<RuntimeFailure> failure;
    Q_EMIT document.Pointer(true);
    try {
        document.WriteToFile(dialog.FileName);
    } catch (const RuntimeFailure& caught) {
        failure = caught;
    }
    Q_EMIT document.Pointer(false);
    if (failure) {
        document.SetIsModify(true);
        TellSaveFailure(document, std::exchange(dialog.FileName, former), *failure);
    }
}

} // namespace

Answer AskSaveChanges(bool dirty, const DocumentContext& context)
{
    if (!dirty)
        return Answer::NotAsked;
    return context.messages.Ask(MessageIcon::Exclamation, context.define.AppTitle,
                                u"I dati sono stati modificati.\nVuoi salvare le modifiche correnti?"_s);
}

void SetFileDialog(const DocumentContext& context, const TestInfo& info)
{
    context.dialog.InitDir = context.define.OpenSaveFolder;
    context.dialog.DefaultExt = info.extension;
    context.dialog.Filter = info.Filter();
}

bool NewDocument(TestDocument& document)
{
    if (!MayBeLost(document))
        return false;
    document.Renew();
    return true;
}

LoadOutcome LoadDocument(TestDocument& document, const QString& fileName)
{
    LoadOutcome outcome;
    try {
        document.ReadFromFile(fileName);
    } catch (const RuntimeFailure& failure) {
        outcome.reading = failure;
    }
    try {
        outcome.end = document.Calc();
    } catch (const RuntimeFailure& failure) {
        outcome.calculation = failure;
    }
    return outcome;
}

bool OpenDocument(TestDocument& document)
{
    const DocumentContext& context = document.Context();
    // Deliberate: the two flags are not folded into one here. A save cancelled in its dialog, after a change
    // in the grid alone, leaves IsModify false, and the opening goes on.
    const Answer answer =
        AskSaveChanges(document.IsModify() || document.ChangeMade(TestDocument::Which::FirstGrid), context);
    if (answer == Answer::Yes) {
        SaveDocument(document);
        if (document.IsModify())
            return false;
    }
    if (answer == Answer::Cancel)
        return false;

    context.dialog.FileName.clear();
    if (!context.dialog.ShowOpen())
        return false;
    const QString fileName = context.dialog.FileName;
    Q_EMIT document.Pointer(true);
    const LoadOutcome outcome = LoadDocument(document, fileName);
    // The reading began with a reset, which empties the name. A file that was read in part keeps it empty, so
    // that a save asks for a name and does not replace the rest of the file.
    if (document.HowRead() == FileRead::Whole)
        context.dialog.FileName = fileName;
    Q_EMIT document.Pointer(false);
    return true;
}

void SaveDocument(TestDocument& document)
{
    CommonDialog& dialog = document.Context().dialog;
    const QString former = dialog.FileName;
    if (dialog.FileName.isEmpty() && !dialog.ShowSave())
        return;
    WriteDocument(document, former);
}

void SaveDocumentAs(TestDocument& document)
{
    CommonDialog& dialog = document.Context().dialog;
    const QString former = std::exchange(dialog.FileName, QString());
    if (dialog.ShowSave())
        WriteDocument(document, former);
}

bool CloseDocument(TestDocument& document)
{
    return MayBeLost(document);
}
