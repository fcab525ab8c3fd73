// The world around a document in a test: a scripted file dialog, scripted answers, global values, a table of
// F.
#pragma once

#include "Compare.h"
#include "framework/document/CommonDialog.h"
#include "framework/document/Define.h"
#include "framework/document/Messages.h"
#include "framework/document/TestDocument.h"
#include "stats/CriticalValues.h"
#include "stats/RuntimeFailure.h"

#include <QFile>
#include <QList>
#include <QMap>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

/// A file dialog that answers with the names laid out for it, in order, and fails the test when none is left.
class ScriptedDialog : public CommonDialog
{
public:
    /// The answer to the next question; an empty name is a cancel.
    void WillChoose(const QString& fileName) { m_answers.append(fileName); }
    int Asked() const { return m_asked; }
    bool ShowOpen() override { return Choose(); }
    bool ShowSave() override { return Choose(); }
    QString BrowseFolder(const QString& title, const QString& folder) override
    {
        m_browsed.append(title + u'|' + folder);
        return m_answers.isEmpty() ? QString() : m_answers.takeFirst();
    }
    /// Title and first folder of each question for a folder.
    const QStringList& Browsed() const { return m_browsed; }

private:
    bool Choose()
    {
        ++m_asked;
        if (m_answers.isEmpty()) {
            QTest::qFail("a file dialog that the test did not expect", __FILE__, __LINE__);
            return false;
        }
        const QString answer = m_answers.takeFirst();
        if (!answer.isEmpty())
            FileName = answer;
        return !answer.isEmpty();
    }

    QList<QString> m_answers;
    QStringList m_browsed;
    int m_asked = 0;
};

/// Collects messages; answers questions from a script and fails the test on one that it does not hold.
class ScriptedMessages : public Messages
{
public:
    struct Shown {
        MessageIcon icon;
        QString title;
        QString text;
    };

    void Beep() override { ++m_beeps; }
    int Beeps() const { return m_beeps; }
    void WillAnswer(Answer answer) { m_answers.append(answer); }
    const QList<Shown>& All() const { return m_shown; }
    /// The text of the only message since the last call, or a note that tells the count.
    QString TakeOnly()
    {
        const QList<Shown> shown = std::exchange(m_shown, {});
        return shown.size() == 1 ? shown.front().text : QStringLiteral("%1 messages").arg(shown.size());
    }

    void Show(MessageIcon icon, const QString& title, const QString& text) override
    {
        m_shown.append({icon, title, text});
    }
    Answer Ask(MessageIcon icon, const QString& title, const QString& text) override
    {
        Show(icon, title, text);
        if (m_answers.isEmpty()) {
            QTest::qFail("a question that the test did not expect", __FILE__, __LINE__);
            return Answer::Cancel;
        }
        return m_answers.takeFirst();
    }

private:
    QList<Answer> m_answers;
    QList<Shown> m_shown;
    int m_beeps = 0;
};

/// Holds nothing. Where it is missing, asking for it fails as a missing database does.
class EmptyFTable : public FTable
{
public:
    std::optional<double> Find(std::int16_t, std::int16_t) override
    {
        if (missing)
            throw RuntimeFailure(FailureKind::DatabaseNotOpen);
        return std::nullopt;
    }
    bool missing = false;
};

struct TestWorld {
    Define define;
    ScriptedDialog dialog;
    ScriptedMessages messages;
    EmptyFTable fTable;

    DocumentContext Context() { return {define, dialog, messages, fTable}; }
};

/// A new document in a scripted world, and a folder for its files; Begin makes all of them anew for each
/// test.
template<typename Document>
class DocumentTest
{
protected:
    /// fileName: of m_file, in the folder.
    void Begin(const QString& fileName)
    {
        FailOnWarnings();
        m_folder = std::make_unique<QTemporaryDir>();
        m_file = m_folder->filePath(fileName);
        m_document.reset();
        m_world = std::make_unique<TestWorld>();
        m_document = MakeDocument<Document>(m_world->Context());
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
    std::unique_ptr<TestWorld> m_world;
    std::unique_ptr<Document> m_document;
};

/// The number of this place among the document's values.
inline double NumberOf(const TestDocument& document, std::size_t place)
{
    return std::get<double>(document.Values()[place].value);
}

/// The path of a test document.
inline QString DataFile(const QString& name)
{
    return QStringLiteral(QUOREL_TEST_DATA "/documents/") + name;
}

inline QByteArray BytesOf(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

/// A test document with some of its lines, counted from 1, replaced.
inline QByteArray DataFileWith(const QString& name, const QMap<int, QByteArray>& lines)
{
    QList<QByteArray> all = BytesOf(DataFile(name)).split('\n');
    for (auto line = lines.begin(); line != lines.end(); ++line)
        all[line.key() - 1] = line.value() + '\r';
    return all.join('\n');
}

inline bool WriteBytes(const QString& fileName, const QByteArray& bytes)
{
    QFile file(fileName);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}
