// A story: what a user does with the whole program, step by step, and after each step all that has changed.
#pragma once

#include "shell/Program.h"
#include "stories/WindowPicture.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QTimer>

#include <memory>

/// Does the steps of a story with mouse and keys, in the real program with its real dialogs, in a home of its
/// own.
///
/// A story is a text. A line that begins with '>' is a step, one with '>>' a step inside the dialog that the
/// step before opens; '#' and empty lines are for the reader. The lines below a step tell what it changed:
/// the lines of the window's picture, the dialogs that came, focus, pointer, clipboard, beeps, and the files
/// in the home. The steps are described in tests/data/stories/README.md.
class Story
{
public:
    explicit Story(const QString& text);
    ~Story();
    Q_DISABLE_COPY_MOVE(Story)

    /// The story as it happens: its steps, and what each of them changed.
    QString Tell();

private:
    struct Step {
        QString verb;
        QStringList words;
        QString line;
    };

    /// Why a step can't be done.
    struct NotDone {
        QString why;
    };

    Step Parsed(const QString& line) const;
    void Start();
    void Do(const Step& step);
    void Run(const Step& step);
    QWidget* Waiting() const;
    void DoInDialogs();
    void TellDialog(QWidget* dialog);
    /// Everything that a user could see, hear or find on the disk.
    Picture World() const;
    Picture Files() const;
    void TellChanges();
    QString Cleaned(QString text) const;

    // The steps, in StorySteps.cpp. What can't be done throws NotDone.
    QWidget* Window() const;
    QWidget* Find(const QString& name) const;
    void Click(const Step& step);
    void Pick(QMenu* menu, const QString& name);
    void MenuStep(const QStringList& path);
    void Press(const QString& keys);
    void Type(const QString& text);
    void Cell(const Step& step);
    void Drag(const QStringList& words);
    void Drop(const QStringList& names);
    void FilesStep(const Step& step);
    void FileDialogStep(const QString& name);

    QString m_text;
    QStringList m_told;
    QList<Step> m_inside;              ///< the steps still to be done in dialogs
    QTimer m_look;                     ///< for a dialog
    QHash<QString, Picture> m_dialogs; ///< as they were last
    bool m_waits = false;              ///< a step has not come back yet
    bool m_started = false;
    Picture m_before;
    std::unique_ptr<QTemporaryDir> m_home;
    std::unique_ptr<Program> m_program;
};
