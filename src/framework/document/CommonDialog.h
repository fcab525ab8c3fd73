// The file dialog that all test windows share.
#pragma once

#include <QString>

/// Deliberate: the current file name of every document is FileName of this one object. After opening or
/// saving in one window, a save without a dialog in another one goes to that file.
class CommonDialog
{
public:
    virtual ~CommonDialog() = default;

    QString FileName;
    QString InitDir;
    QString DefaultExt; ///< without the point
    QString Filter;     ///< "Limiti (*.LIM)|*.LIM"; several patterns are parted by semicolons

    /// Asks for an existing file, or for the file to write (and whether an existing one may be replaced).
    /// True with FileName set to the full path; false, with FileName as it was, when the user cancels.
    virtual bool ShowOpen() = 0;
    virtual bool ShowSave() = 0;

    /// Asks for a folder, beginning at the one given: its path without a closing separator, or an empty one.
    virtual QString BrowseFolder(const QString& title, const QString& folder) = 0;
};

/// While it lives, the dialog may be used for other files than documents: it gets its settings back, and with
/// them the name of the documents.
class KeepDialog
{
public:
    explicit KeepDialog(CommonDialog& dialog)
        : m_dialog(dialog),
          m_fileName(dialog.FileName),
          m_initDir(dialog.InitDir),
          m_defaultExt(dialog.DefaultExt),
          m_filter(dialog.Filter)
    {
    }
    ~KeepDialog()
    {
        m_dialog.FileName = m_fileName;
        m_dialog.InitDir = m_initDir;
        m_dialog.DefaultExt = m_defaultExt;
        m_dialog.Filter = m_filter;
    }
    Q_DISABLE_COPY_MOVE(KeepDialog)

private:
    CommonDialog& m_dialog;
    QString m_fileName;
    QString m_initDir;
    QString m_defaultExt;
    QString m_filter;
};
