#include "batch/Batch.h"

#include "batch/CommandLine.h"
#include "batch/Outcome.h"
#include "framework/chart/ChartData.h"
#include "framework/chart/ChartPainter.h"
#include "framework/document/Define.h"
#include "framework/document/TestRegistry.h"
#include "framework/files/Database.h"
#include "framework/files/SafeFile.h"
#include "framework/text/TextFunctions.h"
#include "stats/RuntimeFailure.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace
{

constexpr int kAllDone = 0;
constexpr int kSomeFailed = 1;
constexpr int kWrongCall = 2;

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
    Batch(CommandLine line, const BatchWorld& world)
        : m_line(std::move(line)), m_world(world), m_fTable(world.programFolder + u"/DB/"_s + kDatabaseName)
    {
    }

    int Run()
    {
        const QStringList files = FilesOf(m_line.paths);
        for (const QString& folder : {m_line.chartDir, m_line.rewriteDir}) {
            const QString obstacle = folder.isEmpty() ? QString() : FolderObstacle(folder, files);
            if (!obstacle.isEmpty()) {
                m_world.err.write("quorel-batch: " + obstacle.toUtf8() + '\n');
                return kWrongCall;
            }
        }
        for (qsizetype i = 0; i < files.size() && !m_outputLost; ++i) {
            ShowProgress(i, files);
            Report(Compute(files[i], m_line, m_fTable));
        }
        ClearProgress();
        if (m_outputLost)
            Complain(u"uscita standard"_s, u"impossibile scrivere i risultati"_s);
        return m_failed ? kSomeFailed : kAllDone;
    }

private:
    /// What is told and written of a file. In the order of the files, on the thread that paints.
    void Report(const Outcome& outcome)
    {
        if (!outcome.complaint.isEmpty())
            Complain(outcome.file, outcome.complaint);
        if (m_world.out.write(outcome.printed) != outcome.printed.size())
            m_outputLost = true;
        if (!outcome.writes)
            return;
        const QString name = QFileInfo(outcome.file).fileName();
        if (m_written.contains(name)) {
            Complain(outcome.file, u"non salvato: un altro file ha lo stesso nome"_s);
            return;
        }
        m_written.insert(name);
        try {
            WriteCharts(name, outcome.charts);
        } catch (const RuntimeFailure& failure) {
            ComplainNotSaved(outcome.file, FailureText(failure));
        }
        Rewrite(name, outcome);
    }

    void WriteCharts(const QString& name, const std::vector<ChartData>& charts)
    {
        if (!m_painter && !charts.empty())
            m_painter = CreateChartPainter(m_world.programFolder);
        for (const ChartData& chart : charts) {
            m_painter->SetChart(chart, m_line.decSep);
            WriteSafeFile(QDir(m_line.chartDir).filePath(u"%1.%2.pdf"_s.arg(name, chart.name)),
                          m_painter->Export(ChartFormat::Pdf, kChartPage));
        }
    }

    void Rewrite(const QString& name, const Outcome& outcome)
    {
        QString obstacle = outcome.notRewritten;
        try {
            if (outcome.rewritten)
                WriteSafeFile(QDir(m_line.rewriteDir).filePath(name), *outcome.rewritten);
        } catch (const RuntimeFailure& failure) {
            obstacle = FailureText(failure);
        }
        if (!obstacle.isEmpty())
            ComplainNotSaved(outcome.file, obstacle);
    }

    void ComplainNotSaved(const QString& file, const QString& reason)
    {
        Complain(file, u"non salvato: %1"_s.arg(reason));
    }

    void Complain(const QString& file, const QString& reason)
    {
        m_failed = true;
        ClearProgress();
        m_world.err.write(u"quorel-batch: %1: %2\n"_s.arg(file, reason).toUtf8());
    }

    void ShowProgress(qsizetype done, const QStringList& files)
    {
        if (m_world.progress && files.size() > 1)
            m_world.err.write(
                u"\r\x1b[K%1/%2 %3"_s.arg(done + 1).arg(files.size()).arg(files[done]).toUtf8());
    }

    void ClearProgress()
    {
        if (m_world.progress)
            m_world.err.write("\r\x1b[K");
    }

    CommandLine m_line;
    BatchWorld m_world;
    DatabaseFTable m_fTable;
    std::unique_ptr<ChartPainter> m_painter;
    QSet<QString> m_written; ///< names, without their folders
    bool m_failed = false;
    bool m_outputLost = false;
};

} // namespace

int RunBatch(const QStringList& arguments, const BatchWorld& world)
{
    CommandLine line = ParseCommandLine(arguments);
    if (!line.error.isEmpty()) {
        const QString text = u"quorel-batch: %1\nAiuto: quorel-batch --help\n"_s.arg(line.error);
        world.err.write(text.toUtf8());
        return kWrongCall;
    }
    if (line.help || line.version) {
        world.out.write((line.help ? HelpText() : u"quorel-batch %1\n"_s.arg(world.version)).toUtf8());
        return kAllDone;
    }
    return Batch(std::move(line), world).Run();
}
