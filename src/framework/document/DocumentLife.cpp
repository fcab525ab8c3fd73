#include "framework/document/DocumentLife.h"

#include "framework/document/CommonDialog.h"
#include "framework/document/Define.h"
#include "framework/document/DocumentContext.h"
#include "framework/document/TestRegistry.h"
#include "framework/text/TextFunctions.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace
{

/// Asks what becomes of changes, and saves them where they are to be saved. False when the document has to
/// stay: cancelled, or to be saved and not saved.
bool ChangesSettled(TestDocument& document, bool dirty)
{
    const Answer answer = AskSaveChanges(dirty, document.Context());
    if (answer == Answer::Yes)
        SaveDocument(document);
    return answer != Answer::Cancel && !(answer == Answer::Yes && document.IsModify());
}

/// The dirty test of New and Close, which keeps its answer in the document's own flag, and the question.
bool MayBeLost(TestDocument& document)
{
    document.SetIsModify(document.IsModify() || document.ChangeMade());
    return ChangesSettled(document, document.IsModify());
}

/// The dirty test of Open, and the question.
bool MayBeReplaced(TestDocument& document)
{
    // Deliberate: the two flags are not folded into one here. A save cancelled in its dialog, after a change
    // in the grid alone, leaves IsModify false, and the opening goes on.
    return ChangesSettled(document,
                          document.IsModify() || document.ChangeMade(TestDocument::Which::FirstGrid));
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
        return;
    }
    Q_EMIT document.Filed(dialog.FileName);
}

void Load(TestDocument& document, const QString& fileName)
{
    Q_EMIT document.Pointer(true);
    LoadDocument(document, fileName);
    // The reading began with a reset, which empties the name. A file that was read in part keeps it empty, so
    // that a save asks for a name and does not replace the rest of the file.
    if (document.HowRead() == FileRead::Whole)
        document.Context().dialog.FileName = fileName;
    Q_EMIT document.Pointer(false);
    if (document.HowRead() != FileRead::NotAtAll)
        Q_EMIT document.Filed(fileName);
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
        if (document.HowRead() == FileRead::NotAtAll)
            document.NoteFailure(FailureText(failure));
    }
    try {
        outcome.end = document.Calc();
    } catch (const RuntimeFailure& failure) {
        outcome.calculation = failure;
        if (document.HowRead() == FileRead::Whole && document.Results() != ResultState::Current)
            document.NoteFailure(FailureText(failure));
    }
    return outcome;
}

bool OpenDocument(TestDocument& document)
{
    if (!MayBeReplaced(document))
        return false;
    CommonDialog& dialog = document.Context().dialog;
    dialog.FileName.clear();
    if (!dialog.ShowOpen())
        return false;
    Load(document, QString(dialog.FileName));
    return true;
}

bool OpenNamed(TestDocument& document, const QString& fileName)
{
    if (!MayBeReplaced(document))
        return false;
    Load(document, fileName);
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
