// Windows that are laid out alike on every machine.
#pragma once

#include <QApplication>
#include <QFont>

/// Of the desktop's fonts one that is always there, in one size: what is laid out by it is told.
inline void LayOutByOneFont()
{
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPixelSize(11);
    QApplication::setFont(font);
}
