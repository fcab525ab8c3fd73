#include "framework/window/FileDialog.h"

#include "framework/window/Forms.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace
{

/// "Limiti (*.LIM)|*.LIM" as Qt has it: the name, and the patterns in brackets, parted by blanks.
QString NameFilter(const QString& filter)
{
    const QString name = filter.section(u'|', 0, 0).section(u" ("_s, 0, 0);
    return u"%1 (%2)"_s.arg(name, filter.section(u'|', 1).replace(u';', u' '));
}

/// The name with the extension behind it, where it has not got it in some case already.
QString WithExtension(const QString& name, const QString& extension)
{
    const QString ending = u'.' + extension;
    return name.endsWith(ending, Qt::CaseInsensitive) ? name : name + ending;
}

bool MayReplace(QWidget* parent, const QString& name)
{
    const QString text = u"Il file %1 esiste già.\nVuoi sostituirlo?"_s.arg(
        QDir::toNativeSeparators(QFileInfo(name).fileName()));
    return QMessageBox::warning(parent, QFileInfo(name).fileName(), text, QMessageBox::Yes | QMessageBox::No,
                                QMessageBox::No) == QMessageBox::Yes;
}

} // namespace

bool FileDialog::ShowOpen()
{
    QFileDialog dialog(DialogParent(m_parent), u"Apri"_s, InitDir, NameFilter(Filter));
    dialog.setFileMode(QFileDialog::ExistingFile);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    FileName = dialog.selectedFiles().constFirst();
    return true;
}

bool FileDialog::ShowSave()
{
    QFileDialog dialog(DialogParent(m_parent), u"Salva con nome"_s, InitDir, NameFilter(Filter));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    // The extension comes behind any name, and then the question: "lotto 1.5" is no name with an extension.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    while (dialog.exec() == QDialog::Accepted) {
        const QString name = WithExtension(dialog.selectedFiles().constFirst(), DefaultExt);
        if (QFileInfo::exists(name) && !MayReplace(&dialog, name))
            continue;
        FileName = name;
        return true;
    }
    return false;
}

QString FileDialog::BrowseFolder(const QString& title, const QString& folder)
{
    return QFileDialog::getExistingDirectory(DialogParent(m_parent), title, folder);
}
