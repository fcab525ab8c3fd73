#include "shell/StartUp.h"

#include "framework/text/TextFunctions.h"
#include "shell/CompanyData.h"
#include "shell/Folders.h"
#include "shell/Settings.h"
#include "stats/RuntimeFailure.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace
{

/// Makes a missing folder, or asks for the rights in one that is there.
bool CreateOrVerify(const QString& folder, const Define& define, Messages& messages)
{
    return QFileInfo(folder).isDir() ? VerificaCartella(folder, kFolderRights, define, messages)
                                     : CreaCartella(folder, kFolderRights, define, messages);
}

bool CreaIni(const Define& define, Messages& messages)
{
    try {
        WriteDefaultSettings(define.IniFile);
    } catch (const RuntimeFailure& failure) {
        ShowProcedureFailure(u"CreaIni"_s, failure, define, messages);
        return false;
    }
    return true;
}

/// The folder of this key; "0", and a missing key, stand for the default, which is written back.
QString FolderSetting(const IniManager& ini, const QString& key, const QString& defaultFolder)
{
    const QString value = ini.GetValue(key, u"0"_s);
    if (value != u"0"_s)
        return value;
    // A settings file that can't be written is asked again at the next start.
    static_cast<void>(ini.SetValue(key, defaultFolder));
    return defaultFolder;
}

void ReadSettings(Define& define)
{
    IniManager ini;
    ini.SetFileName(define.IniFile);
    ini.SetApplicationKey(u"Percorsi"_s);
    define.OpenSaveFolder = FolderSetting(ini, u"OpenSave"_s, define.AppFolder + u"Doc/"_s);
    define.BackupFolder = FolderSetting(ini, u"Backup"_s, define.AppFolder + u"Backup/"_s);
    ini.SetApplicationKey(u"Parametri"_s);
    define.BkAutoSave = ini.GetValue(u"BkAutoSave"_s, u"0"_s);
}

} // namespace

void InitGlobals(Define& define, const QString& programFolder)
{
    define.DecSep = GetDecSep();
    define.ProgramFolder = programFolder;
    define.IchDoc = programFolder + u"/Ich/Q2.pdf"_s;
    define.BookDoc = programFolder + u"/Libro/v.marzen_metodi_statistici.pdf"_s;
}

bool InitPaths(Define& define, const QString& documentsFolder, Messages& messages)
{
    define.AppFolder = documentsFolder + u"Quorel2006/"_s;
    if (!CreateOrVerify(define.AppFolder, define, messages))
        return false;
    define.IniFile = define.AppFolder + u"QuoSet.ini"_s;
    if (!QFileInfo::exists(define.IniFile) && !CreaIni(define, messages))
        return false;
    define.DbFolder = define.AppFolder + u"DB/"_s;
    if (!CreateOrVerify(define.DbFolder, define, messages))
        return false;
    const bool database = CopyDatabase(define.ProgramFolder + u"/DB/"_s + kDatabaseName,
                                       define.DbFolder + kDatabaseName, define, messages);
    define.DbFile = define.DbFolder + kDatabaseName;
    ReadSettings(define);
    for (const QString& folder : {define.OpenSaveFolder, define.BackupFolder}) {
        CreaCartella(folder, kFolderRights, define, messages);
        VerificaCartella(folder, kFolderRights, define, messages);
    }
    if (database)
        define.LogoFile = LogoPathAtStart(define, messages);
    return database;
}

QString GetSpecialFolder()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QDir().mkpath(folder);
    return folder + u'/';
}
