// The values that hold for the whole program, made once at start and handed down by reference.
#pragma once

#include <QString>

/// The one object of global values. Documents that are calculated side by side have one each.
struct Define {
    QString FileMarker = QStringLiteral("Quorel for Windows"); ///< first line of every data file
    QString AppTitle = QStringLiteral("Quorel 2006");          ///< title of every message box
    QString DecSep = QStringLiteral(".");                      ///< the decimal separator that numbers show

    // What the panel DescrBar says of the thing under the mouse.
    QString DescGrid = QStringLiteral("Griglia per l'inserimento dei dati");
    QString DescResults = QStringLiteral("Mostra i risultati dell'elaborazione");
    QString DescConcl = QStringLiteral("Mostra il testo delle conclusioni");

    QString OpenSaveFolder; ///< where the file dialog starts
    QString DbFile;         ///< the database that holds the table of F

    /// Deliberate: the format that was built last in any document, and the one that results are printed with.
    QString NumFormat;
};
