#include "framework/window/Forms.h"

#include <QApplication>
#include <QRegularExpressionValidator>
#include <QScreen>

void CenterForm(QWidget* dialog)
{
    dialog->adjustSize();
    QRect place(QPoint(), dialog->size());
    place.moveCenter(dialog->screen()->availableGeometry().center());
    dialog->move(place.topLeft());
}

QPushButton* NewButton(const QString& name, const QString& caption)
{
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    return button;
}

QPushButton* ButtonWithoutEnter(const QString& name, const QString& caption)
{
    QPushButton* button = NewButton(name, caption);
    button->setAutoDefault(false);
    return button;
}

QValidator* UpToFourDigits(QObject* parent)
{
    static const QRegularExpression kUpToFourDigits(QStringLiteral("[0-9]{0,4}"));
    return new QRegularExpressionValidator(kUpToFourDigits, parent);
}

QWidget* DialogParent(QWidget* frame)
{
    QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : frame;
}
