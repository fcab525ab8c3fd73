#include "batch/CommandLine.h"

#include "framework/text/TextFunctions.h"

#include <QCommandLineParser>

using namespace Qt::StringLiterals;

namespace
{

/// The value of an option that the call gave and that is not among the allowed ones is an error.
void CheckValue(CommandLine& line, const QString& option, const QString& value, const QStringList& allowed)
{
    if (!allowed.contains(value))
        line.error = u"valore non valido per l'opzione --%1: %2"_s.arg(option, value);
}

} // namespace

QString HelpText()
{
    return u"Uso: quorel-batch [opzioni] FILE|CARTELLA...\n"
           "\n"
           "Apre documenti di convalida, li calcola e mostra i risultati. Una cartella sta per i file di dati\n"
           "che contiene direttamente, in ordine di nome.\n"
           "\n"
           "  --json              un oggetto JSON per documento, uno per riga, in UTF-8\n"
           "  --chart-data        aggiunge al JSON i dati dei grafici\n"
           "  --chart CARTELLA    scrive ogni grafico nella cartella, come NOME.GRAFICO.pdf\n"
           "  --rewrite CARTELLA  salva di nuovo ogni documento nella cartella, nel formato attuale\n"
           "  --language it|en    lingua dei grafici (en)\n"
           "  --decimal CARATTERE . oppure , come separatore decimale dei numeri mostrati (quello del sistema)\n"
           "  --version           mostra la versione\n"
           "  --help              mostra questo testo\n"
           "\n"
           "Stato di uscita: 0 ogni documento letto per intero e calcolato; 1 almeno uno no (ciascuno è\n"
           "nominato, con il motivo, sull'uscita degli errori); 2 la chiamata non è valida.\n"_s;
}

CommandLine ParseCommandLine(const QStringList& arguments)
{
    const QString rewrite = u"rewrite"_s;
    const QString chart = u"chart"_s;
    const QString language = u"language"_s;
    const QString decimal = u"decimal"_s;
    QCommandLineParser parser;
    for (const auto& flag : {u"json"_s, u"chart-data"_s, u"help"_s, u"version"_s})
        parser.addOption(QCommandLineOption(flag));
    for (const QString& folder : {chart, rewrite})
        parser.addOption(QCommandLineOption(folder, {}, u"CARTELLA"_s));
    parser.addOption(QCommandLineOption(language, {}, u"it|en"_s, u"en"_s));
    parser.addOption(QCommandLineOption(decimal, {}, u"CARATTERE"_s, GetDecSep()));

    CommandLine line;
    if (!parser.parse(QStringList(u"quorel-batch"_s) + arguments)) {
        const QStringList unknown = parser.unknownOptionNames();
        line.error = unknown.isEmpty() ? u"opzione non valida: %1"_s.arg(parser.errorText())
                                       : u"opzione sconosciuta: %1"_s.arg(unknown.join(u", "));
        return line;
    }
    line.json = parser.isSet(u"json"_s);
    line.chartData = parser.isSet(u"chart-data"_s);
    line.help = parser.isSet(u"help"_s);
    line.version = parser.isSet(u"version"_s);
    line.language = parser.value(language) == "it"_L1 ? Language::Italian : Language::English;
    line.chartDir = parser.value(chart);
    line.rewriteDir = parser.value(rewrite);
    line.decSep = parser.value(decimal);
    line.paths = parser.positionalArguments();

    if (parser.isSet(language))
        CheckValue(line, language, parser.value(language), {u"it"_s, u"en"_s});
    if (parser.isSet(decimal))
        CheckValue(line, decimal, line.decSep, {u"."_s, u","_s});
    for (const QString& folder : {chart, rewrite}) {
        if (parser.isSet(folder) && parser.value(folder).isEmpty())
            line.error = u"l'opzione --%1 vuole una cartella"_s.arg(folder);
    }
    if (line.error.isEmpty() && !line.help && !line.version && line.paths.isEmpty())
        line.error = u"manca il file o la cartella da elaborare"_s;
    return line;
}
