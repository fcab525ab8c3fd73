// The life of a document between New and Close: the questions before changes are lost, opening, saving. Here
// a failure of reading, writing or calculating a file ends: it is passed over or told, never thrown on.
#pragma once

#include "framework/document/DocumentContext.h"
#include "framework/document/Messages.h"
#include "framework/document/TestDocument.h"
#include "framework/document/TestRegistry.h"
#include "stats/RuntimeFailure.h"

#include <QString>

#include <optional>

/// Asks whether to save when dirty: NotAsked when there is nothing to save.
Answer AskSaveChanges(bool dirty, const DocumentContext& context);

/// Sets the shared dialog up for the files of one test.
void SetFileDialog(const DocumentContext& context, const TestInfo& info);

/// FileNuovo. False when the user keeps the document.
bool NewDocument(TestDocument& document);

/// What came of reading a file and calculating it.
struct LoadOutcome {
    std::optional<RuntimeFailure> reading;     ///< why the reading stopped
    std::optional<RuntimeFailure> calculation; ///< why the calculation stopped
    std::optional<CalcEnd> end;                ///< of a calculation that did not stop

    bool Calculated() const { return end == CalcEnd::Done; }
    /// What kept the document from its results, or null: the reading's failure where there was one, since
    /// what it left out is what the calculation then lacks.
    const RuntimeFailure* Failure() const
    {
        const auto& failure = reading ? reading : calculation;
        return Calculated() || !failure ? nullptr : &*failure;
    }
};

/// Reads and calculates without a word, as far as both get. The document counts as unchanged then.
LoadOutcome LoadDocument(TestDocument& document, const QString& fileName);

/// FileApri. True when a file was opened, also when it could be read in part only.
bool OpenDocument(TestDocument& document);

/// The same for a file that is known, after the same questions. Where the user refuses all is as it was.
bool OpenNamed(TestDocument& document, const QString& fileName);

/// FileSalva: to the name that the shared dialog holds, else to the one that the user gives it. A failure is
/// told, and the document counts as changed.
void SaveDocument(TestDocument& document);

/// FileSalvaNome.
void SaveDocumentAs(TestDocument& document);

/// Before a window closes. False when it has to stay.
bool CloseDocument(TestDocument& document);
