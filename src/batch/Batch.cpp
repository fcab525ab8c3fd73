#include "batch/Batch.h"

#include "batch/CommandLine.h"
#include "batch/JsonOutput.h"
#include "framework/chart/ChartPainter.h"
#include "framework/files/Database.h"
#include "framework/files/SafeFile.h"
#include "validation/DocumentFactory.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace
{

constexpr int kAllDone = 0;
constexpr int kSomeFailed = 1;
constexpr int kWrongCall = 2;

/// Nobody is there to choose a file.
class NoDialog : public CommonDialog
{
public:
    bool ShowOpen() override { return false; }
    bool ShowSave() override { return false; }
    QString BrowseFolder(const QString&, const QString&) override { return {}; }
};

class MessageCollector : public Messages
{
public:
    void Show(MessageIcon icon, const QString& title, const QString& text) override
    {
        m_collected.append({icon, title, text});
    }
    Answer Ask(MessageIcon icon, const QString& title, const QString& text) override
    {
        Show(icon, title, text);
        return Answer::Cancel;
    }
    const QList<CollectedMessage>& Collected() const { return m_collected; }

private:
    QList<CollectedMessage> m_collected;
};

/// The files of the call: those given, and those that a given folder holds, each under the path as given.
QStringList FilesOf(const QStringList& paths)
{
    QStringList files;
    for (const QString& path : paths) {
        if (!QFileInfo(path).isDir()) {
            files.append(path);
            continue;
        }
        QStringList names = QDir(path).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::NoSort);
        erase_if(names, [](const QString& name) { return FindTestOfFile(name) == nullptr; });
        std::ranges::sort(names);
        for (const QString& name : std::as_const(names))
            files.append(path.endsWith(u'/') ? path + name : path + u'/' + name);
    }
    return files;
}

/// Why nothing can be written to this folder, or empty. It is made where it is missing.
QString FolderObstacle(const QString& folder, const QStringList& files)
{
    if (!QDir().mkpath(folder))
        return u"impossibile creare la cartella %1"_s.arg(folder);
    const QString target = QFileInfo(folder).canonicalFilePath();
    for (const QString& file : files) {
        if (QFileInfo(QFileInfo(file).absolutePath()).canonicalFilePath() == target)
            return u"la cartella %1 è quella di %2: i file di origine non si sovrascrivono"_s.arg(folder,
                                                                                                  file);
    }
    return {};
}

class Batch
{
public:
    Batch(CommandLine line, const BatchPlace& place)
        : m_line(std::move(line)), m_place(place), m_fTable(place.programFolder + u"/DB/"_s + kDatabaseName)
    {
    }

    int Run()
    {
        const QStringList files = FilesOf(m_line.paths);
        for (const QString& folder : {m_line.chartDir, m_line.rewriteDir}) {
            const QString obstacle = folder.isEmpty() ? QString() : FolderObstacle(folder, files);
            if (!obstacle.isEmpty()) {
                m_place.err.write("quorel-batch: " + obstacle.toUtf8() + '\n');
                return kWrongCall;
            }
        }
        for (qsizetype i = 0; i < files.size() && !m_outputLost; ++i) {
            ShowProgress(i, files);
            Do(files[i]);
        }
        ClearProgress();
        if (m_outputLost)
            Complain(u"uscita standard"_s, u"impossibile scrivere i risultati"_s);
        return m_failed ? kSomeFailed : kAllDone;
    }

private:
    void Do(const QString& file)
    {
        const TestInfo* info = FindTestOfFile(QFileInfo(file).fileName());
        if (info == nullptr) {
            Complain(file, u"non è un file di dati"_s);
            return;
        }
        Define define;
        define.DecSep = m_line.decSep;
        NoDialog dialog;
        MessageCollector messages;
        const auto document = CreateDocument(info->key, {define, dialog, messages, m_fTable});
        if (!document) {
            Complain(file, u"i file di tipo %1 non sono ancora gestiti"_s.arg(info->extension));
            return;
        }
        const LoadOutcome outcome = LoadDocument(*document, file);
        const bool opened = document->ReadStop() != 0;
        document->SetLanGraf(m_line.english ? 1 : 0);
        TellOutcome(file, *document, outcome, messages.Collected());
        if (opened)
            Print(BatchResult{file, *document, outcome, messages.Collected()});
        const QString name = QFileInfo(file).fileName();
        if (m_line.chartDir.isEmpty() && m_line.rewriteDir.isEmpty())
            return;
        if (m_written.contains(name)) {
            Complain(file, u"non salvato: un altro file ha lo stesso nome"_s);
            return;
        }
        m_written.insert(name);
        if (!m_line.chartDir.isEmpty() && outcome.calculated)
            Write(file, [&] { WriteCharts(name, *document); });
        if (!m_line.rewriteDir.isEmpty() && !outcome.reading)
            Write(file, [&] { document->WriteToFile(QDir(m_line.rewriteDir).filePath(name)); });
    }

    void Write(const QString& file, const std::function<void()>& write)
    {
        try {
            write();
        } catch (const RuntimeFailure& failure) {
            Complain(file, u"non salvato: %1"_s.arg(QString::fromStdString(failure.Text())));
        }
    }

    void WriteCharts(const QString& name, const TestDocument& document)
    {
        if (!m_painter)
            m_painter = CreateChartPainter(m_place.programFolder);
        for (const ChartData* chart : document.Charts()) {
            m_painter->SetChart(*chart, m_line.decSep);
            WriteSafeFile(QDir(m_line.chartDir).filePath(u"%1.%2.pdf"_s.arg(name, chart->name)),
                          m_painter->Export(ChartFormat::Pdf, kChartPage));
        }
    }

    void TellOutcome(const QString& file, const TestDocument& document, const LoadOutcome& outcome,
                     const QList<CollectedMessage>& messages)
    {
        if (outcome.reading) {
            const QString reason = QString::fromStdString(outcome.reading->Text());
            const int line = document.ReadStop().value_or(0);
            Complain(file,
                     line == 0 ? reason : u"letto in parte, fino alla riga %1: %2"_s.arg(line).arg(reason));
        } else if (outcome.calculation) {
            Complain(file, u"non calcolato: %1"_s.arg(QString::fromStdString(outcome.calculation->Text())));
        } else if (!outcome.calculated) {
            Complain(file, messages.isEmpty()
                               ? u"non calcolato: la somma dei valori è zero"_s
                               : u"non calcolato: %1"_s.arg(messages.last().text.simplified()));
        }
    }

    void Print(const BatchResult& result)
    {
        const QByteArray text = m_line.json ? JsonLine(result, m_line.chartData) : Summary(result);
        if (m_place.out.write(text) != text.size())
            m_outputLost = true;
    }

    void Complain(const QString& file, const QString& reason)
    {
        m_failed = true;
        ClearProgress();
        m_place.err.write(u"quorel-batch: %1: %2\n"_s.arg(file, reason).toUtf8());
    }

    void ShowProgress(qsizetype done, const QStringList& files)
    {
        if (m_place.progress && files.size() > 1)
            m_place.err.write(
                u"\r\x1b[K%1/%2 %3"_s.arg(done + 1).arg(files.size()).arg(files[done]).toUtf8());
    }

    void ClearProgress()
    {
        if (m_place.progress)
            m_place.err.write("\r\x1b[K");
    }

    CommandLine m_line;
    BatchPlace m_place;
    DatabaseFTable m_fTable;
    std::unique_ptr<ChartPainter> m_painter;
    QSet<QString> m_written; ///< names, without their folders
    bool m_failed = false;
    bool m_outputLost = false;
};

} // namespace

int RunBatch(const QStringList& arguments, const BatchPlace& place)
{
    CommandLine line = ParseCommandLine(arguments);
    if (!line.error.isEmpty()) {
        const QString text = u"quorel-batch: %1\nAiuto: quorel-batch --help\n"_s.arg(line.error);
        place.err.write(text.toUtf8());
        return kWrongCall;
    }
    if (line.help || line.version) {
        place.out.write((line.help ? HelpText() : u"quorel-batch %1\n"_s.arg(place.version)).toUtf8());
        return kAllDone;
    }
    return Batch(std::move(line), place).Run();
}
