#include "shell/RecentDocuments.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace
{

const QString kKey = u"recent/documents"_s;
constexpr qsizetype kMost = 10;
constexpr int kCharactersShown = 70;

/// The path from the user's home on; what is too long goes in its middle.
QString ShownName(const QString& fileName, const QFontMetrics& font)
{
    const QString home = QDir::homePath() + u'/';
    QString shown = fileName.startsWith(home) ? u"~/"_s + fileName.sliced(home.size()) : fileName;
    shown = font.elidedText(shown, Qt::ElideMiddle, font.averageCharWidth() * kCharactersShown);
    return shown.replace(u'&', u"&&"_s);
}

} // namespace

void NoteDocument(const QString& fileName)
{
    const QString name = QDir::cleanPath(QFileInfo(fileName).absoluteFilePath());
    QStringList names = RecentDocuments();
    names.removeAll(name);
    names.prepend(name);
    QSettings().setValue(kKey, names.first(std::min(names.size(), kMost)));
}

QStringList RecentDocuments()
{
    return QSettings().value(kKey).toStringList();
}

void AddRecentDocuments(QMenu* menu)
{
    const QStringList names = RecentDocuments();
    for (qsizetype i = 0; i < names.size(); ++i) {
        const QString key = i + 1 < kMost ? u"&%1"_s.arg(i + 1) : u"1&0"_s;
        QAction* action = menu->addAction(key + u' ' + ShownName(names[i], menu->fontMetrics()));
        action->setData(names[i]);
        action->setEnabled(QFileInfo(names[i]).isFile());
    }
}
