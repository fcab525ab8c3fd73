#include "framework/window/Forms.h"

#include <QApplication>
#include <QScreen>

void CenterForm(QWidget* dialog)
{
    dialog->adjustSize();
    QRect place(QPoint(), dialog->size());
    place.moveCenter(dialog->screen()->availableGeometry().center());
    dialog->move(place.topLeft());
}

QWidget* DialogParent(QWidget* frame)
{
    QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : frame;
}
