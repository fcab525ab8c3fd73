#include "shell/OptionsDialog.h"

#include "framework/document/CommonDialog.h"
#include "framework/document/Define.h"
#include "framework/document/DocumentContext.h"
#include "framework/document/Messages.h"
#include "framework/window/Forms.h"
#include "shell/Backup.h"
#include "shell/Folders.h"
#include "shell/Settings.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

OptionsDialog::OptionsDialog(const DocumentContext& context, QWidget* parent)
    : QDialog(parent), m_context(context)
{
    setObjectName(u"frmOpzioni"_s);
    setWindowTitle(u"Opzioni"_s);
    const Define& define = context.define;
    auto* folders = new QGridLayout;
    m_openSave =
        AddFolder(folders, u"txtOpenSave"_s, u"cmdSfo1"_s, u"Cartella predefinita salvataggio file metodi"_s,
                  u"Cartella salvataggio file metodi"_s, define.OpenSaveFolder);
    m_backup = AddFolder(folders, u"txtBackup"_s, u"cmdSfo2"_s, u"Cartella predefinita backup file metodi"_s,
                         u"Cartella salvataggio backup file metodi"_s, define.BackupFolder);
    m_backupAtClose =
        new QCheckBox(u"Effettua automaticamente il backup dei dati alla chiusura del programma"_s);
    m_backupAtClose->setObjectName(u"chkBkClose"_s);
    m_backupAtClose->setChecked(BackupAtClose(define));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(u"cmdOK"_s);
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(u"cmdCancel"_s);
    buttons->button(QDialogButtonBox::Cancel)->setText(u"Annulla"_s);
    connect(buttons, &QDialogButtonBox::accepted, this, &OptionsDialog::Store);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* body = new QWidget;
    auto* layout = new QVBoxLayout(body);
    layout->addLayout(folders);
    layout->addSpacing(8);
    layout->addWidget(m_backupAtClose);
    layout->addStretch(1);
    auto* row = new QHBoxLayout;
    row->addWidget(buttons);
    BuildForm(this, body, row);
}

QLineEdit* OptionsDialog::AddFolder(QGridLayout* layout, const QString& name, const QString& button,
                                    const QString& caption, const QString& browseTitle, const QString& folder)
{
    auto* field = new QLineEdit(folder);
    field->setObjectName(name);
    field->setMinimumWidth(field->fontMetrics().averageCharWidth() * 75);
    auto* label = new QLabel(caption);
    label->setBuddy(field);
    QPushButton* browse = ButtonWithoutEnter(button, u"Sfoglia..."_s);
    browse->setAccessibleDescription(browseTitle);
    connect(browse, &QPushButton::clicked, this,
            [this, field, browseTitle, folder] { Browse(field, browseTitle, folder); });
    const int row = layout->rowCount();
    layout->addWidget(label, row, 0, 1, 2);
    layout->addWidget(field, row + 1, 0);
    layout->addWidget(browse, row + 1, 1);
    return field;
}

void OptionsDialog::Browse(QLineEdit* field, const QString& title, const QString& initial)
{
    const QString folder = m_context.dialog.BrowseFolder(title, initial);
    if (!folder.isEmpty())
        field->setText(folder.endsWith(u'/') ? folder : folder + u'/');
}

bool OptionsDialog::Usable(const QLineEdit* field)
{
    if (QDir::isRelativePath(field->text())) {
        m_context.messages.Show(
            MessageIcon::Critical, m_context.define.AppTitle,
            u"Il percorso \"%1\" non è completo. Indicare la cartella con tutto il suo percorso, che "
            "comincia con \"/\"."_s.arg(field->text()));
        return false;
    }
    if (VerificaCartella(field->text(), kFolderRights, m_context.define, m_context.messages))
        return true;
    m_context.messages.Show(
        MessageIcon::Critical, m_context.define.AppTitle,
        u"Il percorso specificato per i dati non ha i permessi sufficienti per contenere i dati. "
        "Specificare un altro percorso"_s);
    return false;
}

void OptionsDialog::Store()
{
    Define& define = m_context.define;
    if (!Usable(m_openSave) || !Usable(m_backup))
        return;
    const QString backupAtClose = m_backupAtClose->isChecked() ? u"1"_s : u"0"_s;
    IniManager ini;
    ini.SetFileName(define.IniFile);
    ini.SetApplicationKey(u"Percorsi"_s);
    bool written = ini.SetValue(u"OpenSave"_s, m_openSave->text());
    written = ini.SetValue(u"Backup"_s, m_backup->text()) && written;
    ini.SetApplicationKey(u"Parametri"_s);
    written = ini.SetValue(u"BkAutoSave"_s, backupAtClose) && written;
    define.OpenSaveFolder = m_openSave->text();
    define.BackupFolder = m_backup->text();
    define.BkAutoSave = backupAtClose;
    if (!written)
        m_context.messages.Show(
            MessageIcon::Exclamation, define.AppTitle,
            u"Le opzioni valgono fino alla chiusura del programma: il file\n%1\nnon può essere "
            "scritto."_s.arg(define.IniFile));
    accept();
}
