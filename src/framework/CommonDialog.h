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
