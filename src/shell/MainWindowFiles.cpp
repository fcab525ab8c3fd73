#include "shell/MainWindow.h"

#include "framework/document/CommonDialog.h"
#include "framework/document/Define.h"
#include "framework/document/DocumentContext.h"
#include "framework/document/Messages.h"
#include "framework/document/TestDocument.h"
#include "framework/document/TestRegistry.h"
#include "shell/RecentDocuments.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

using namespace Qt::StringLiterals;

// How the frame opens documents that are dropped on it, asked for, or were open before.

QString MainWindow::WhyNotOpened(const QString& fileName) const
{
    const QFileInfo file(fileName);
    if (!file.isFile())
        return file.exists() ? u"non è un file."_s : u"non esiste."_s;
    const TestInfo* test = FindTestOfFile(file.fileName());
    if (test == nullptr)
        return u"non è un documento di questo programma: la sua estensione non è quella di un test."_s;
    if (!HasTest(QString(test->key)))
        return u"non può essere aperto: il programma non ha ancora il test \"%1\"."_s.arg(test->title);
    return {};
}

void MainWindow::OpenFile(const QString& fileName)
{
    if (const QString why = WhyNotOpened(fileName); !why.isEmpty()) {
        m_context.messages.Show(MessageIcon::Exclamation, m_context.define.AppTitle,
                                u"Il file\n%1\n%2"_s.arg(fileName, why));
        return;
    }
    const QString key = FindTestOfFile(QFileInfo(fileName).fileName())->key;
    ShowTest(key);
    TestWindow* front = FrontTest();
    if (front != nullptr && front == OpenTest(key)) // else the window in front has told what it does not take
        front->OpenFile(fileName);
}

void MainWindow::AskForDocument()
{
    QString fileName;
    {
        // The dialog holds the name that the documents share: it gets that back.
        CommonDialog& dialog = m_context.dialog;
        const KeepDialog keep(dialog);
        QStringList patterns;
        for (const TestInfo& test : TestRegistry())
            patterns += u"*."_s + test.extension;
        dialog.InitDir = m_context.define.OpenSaveFolder;
        dialog.DefaultExt.clear();
        dialog.Filter = u"Documenti|"_s + patterns.join(u';');
        dialog.FileName.clear();
        if (!dialog.ShowOpen())
            return;
        fileName = dialog.FileName;
    }
    OpenFile(fileName);
}

void MainWindow::contextMenuEvent(QContextMenuEvent* event)
{
    const bool here =
        event->reason() == QContextMenuEvent::Keyboard || m_area->geometry().contains(event->pos());
    if (!m_open->isEnabled() || !here)
        return;
    QMenu menu(this);
    menu.setObjectName(u"Documents"_s);
    menu.addAction(m_open);
    menu.addSeparator();
    AddRecentDocuments(&menu);
    const QAction* chosen = menu.exec(event->globalPos());
    if (chosen != nullptr && chosen != m_open)
        OpenFile(chosen->data().toString());
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!event->mimeData()->hasUrls() || QApplication::activeModalWidget() != nullptr)
        return;
    event->setDropAction(Qt::CopyAction); // a file that was moved would go from where it is
    event->accept();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    event->setDropAction(Qt::CopyAction);
    event->accept();
    // Later: whoever gave the files does not wait for the questions.
    const QList<QUrl> files = event->mimeData()->urls();
    const auto open = [this, files] {
        for (const QUrl& file : files)
            OpenFile(file.isLocalFile() ? file.toLocalFile() : file.toDisplayString());
    };
    QMetaObject::invokeMethod(this, open, Qt::QueuedConnection);
}
