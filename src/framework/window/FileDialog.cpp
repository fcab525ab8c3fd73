#include "framework/window/FileDialog.h"

#include "framework/document/Define.h"
#include "framework/window/Forms.h"
#include "framework/window/MessageBoxes.h"

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

/// The file that a typed name means: the name itself, or the one with the extension. The name where there is
/// neither.
QString MeantFile(const QString& name, const QString& extension)
{
    if (QFileInfo::exists(name) || extension.isEmpty())
        return name;
    for (const QString& spelt : {extension, extension.toLower()}) {
        if (const QString longer = WithExtension(name, spelt); QFileInfo::exists(longer))
            return longer;
    }
    return name;
}

/// Asks for what exists. Says itself what doesn't, under the program's title.
class ExistingDialog : public QFileDialog
{
public:
    ExistingDialog(QWidget* parent, const QString& title, const QString& folder)
        : QFileDialog(parent, title, folder)
    {
    }

    QString extension;
    QString boxTitle;

    void accept() override
    {
        const QString name = selectedFiles().value(0);
        const QString meant = MeantFile(name, extension);
        if (!QFileInfo::exists(meant) && !name.isEmpty()) {
            const bool folder = fileMode() == Directory;
            QMessageBox::warning(
                this, boxTitle,
                Breakable(folder ? u"La cartella %1 non esiste."_s.arg(name)
                                 : u"Il file %1 non esiste."_s.arg(QFileInfo(name).fileName())));
            return;
        }
        if (meant == name) {
            QFileDialog::accept();
            return;
        }
        m_meant = meant;
        done(Accepted); // the base class would look for the name as it was typed
    }

    QString Chosen() const { return m_meant.isEmpty() ? selectedFiles().constFirst() : m_meant; }

private:
    QString m_meant; ///< where it is not what was typed
};

} // namespace

bool FileDialog::MayReplace(QWidget* parent, const QString& name) const
{
    const QString text = u"Il file %1 esiste già.\nVuoi sostituirlo?"_s.arg(QFileInfo(name).fileName());
    return QMessageBox::warning(parent, m_define.AppTitle, Breakable(text),
                                QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
}

bool FileDialog::ShowOpen()
{
    ExistingDialog dialog(DialogParent(m_parent), u"Apri"_s, InitDir);
    dialog.setNameFilter(NameFilter(Filter));
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.extension = DefaultExt;
    dialog.boxTitle = m_define.AppTitle;
    if (dialog.exec() != QDialog::Accepted)
        return false;
    FileName = dialog.Chosen();
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
    ExistingDialog dialog(DialogParent(m_parent), title, folder);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.boxTitle = m_define.AppTitle;
    return dialog.exec() == QDialog::Accepted ? dialog.Chosen() : QString();
}
