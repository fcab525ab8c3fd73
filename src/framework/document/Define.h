// The values that hold for the whole program, made once at start and handed down by reference.
#pragma once

#include <QLatin1StringView>
#include <QString>

#include <cstdint>

/// The file name of the database, the master's and the working copy's.
inline constexpr QLatin1StringView kDatabaseName("QUOREL73.MDB");

/// The one object of global values. Documents that are calculated side by side have one each.
struct Define {
    QString FileMarker = QStringLiteral("Quorel for Windows"); ///< first line of every data file
    QString AppTitle = QStringLiteral("Quorel 2006");          ///< title of every message box
    QString DecSep = QStringLiteral(".");                      ///< the decimal separator that numbers show

    // What the panel DescrBar says of the thing under the mouse.
    QString DescGrid = QStringLiteral("Griglia per l'inserimento dei dati");
    QString DescResults = QStringLiteral("Mostra i risultati dell'elaborazione");
    QString DescConcl = QStringLiteral("Mostra il testo delle conclusioni");

    // Limits of the logo on a report, in twips: 2.5 cm by 10 cm.
    std::int16_t LogoMaxHeight = 1425;
    std::int16_t LogoMaxWidth = 5700;

    QString
        ProgramFolder; ///< where the executable and its read-only masters lie, without a closing separator
    QString IchDoc;    ///< the guideline
    QString BookDoc;   ///< the reference book

    // The user's folders and files. Folders end with a separator, unless the user typed one without.
    QString AppFolder;
    QString IniFile;
    QString DbFolder;
    QString DbFile;         ///< the working database
    QString OpenSaveFolder; ///< data files; where the file dialog starts
    QString BackupFolder;
    QString BkAutoSave = QStringLiteral("0"); ///< backup at closing: "0" is no, any other number yes
    QString LogoFile;                         ///< the logo of the reports, empty for none

    /// Deliberate: the format that was built last in any document, and the one that results are printed with.
    QString NumFormat;
};

/// The format string of so many digits, "##0.000" for 3 and 3; becomes the global NumFormat as well.
QString GetNumFormat(int interi, int decimali, Define& define);
