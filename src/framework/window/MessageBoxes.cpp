#include "framework/window/MessageBoxes.h"

#include "framework/window/Forms.h"

#include <QApplication>
#include <QMessageBox>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace
{

QMessageBox::Icon BoxIcon(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::None:
        return QMessageBox::NoIcon;
    case MessageIcon::Information:
        return QMessageBox::Information;
    case MessageIcon::Exclamation:
        return QMessageBox::Warning;
    case MessageIcon::Critical:
        return QMessageBox::Critical;
    case MessageIcon::Question:
        return QMessageBox::Question;
    }
    return QMessageBox::NoIcon;
}

void Prepare(QMessageBox& box, const QString& text)
{
    box.setTextFormat(Qt::PlainText);
    box.setText(Breakable(text).replace("\r\n"_L1, "\n"_L1));
}

} // namespace

QString Breakable(QString text)
{
    static const QRegularExpression kLongWord(u"\\S{41,}"_s);
    static const QRegularExpression kMayBreakBehind(u"([^/]{40}|/)(?=.)"_s);
    QRegularExpressionMatch word;
    for (qsizetype from = 0; (word = kLongWord.match(text, from)).hasMatch();) {
        const QString parts = word.captured().replace(kMayBreakBehind, u"\\1\u200B"_s);
        text.replace(word.capturedStart(), word.capturedLength(), parts);
        from = word.capturedStart() + parts.size();
    }
    return text;
}

void MessageBoxes::Show(MessageIcon icon, const QString& title, const QString& text)
{
    QMessageBox box(BoxIcon(icon), title, {}, QMessageBox::Ok, DialogParent(m_parent));
    Prepare(box, text);
    box.exec();
}

void MessageBoxes::Beep()
{
    QApplication::beep();
}

Answer MessageBoxes::Ask(MessageIcon icon, const QString& title, const QString& text)
{
    QMessageBox box(BoxIcon(icon), title, {}, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
                    DialogParent(m_parent));
    Prepare(box, text);
    box.setDefaultButton(QMessageBox::Yes);
    switch (box.exec()) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    default:
        return Answer::Cancel;
    }
}
