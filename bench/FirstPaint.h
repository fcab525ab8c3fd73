// Ends a program once its frame is painted, with what that cost.
#pragma once

#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QMdiArea>
#include <QTimer>

#include <chrono>
#include <cstdio>

/// Prints "MILLISECONDS KIBIBYTES": the time since START (microseconds since 1970, set by whoever starts the
/// program) and the most memory held, when the area has been painted; then quits.
class FirstPaint : public QObject
{
public:
    explicit FirstPaint(QMdiArea* area) : QObject(area) { area->viewport()->installEventFilter(this); }

protected:
    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && !m_painted) {
            m_painted = true;
            QTimer::singleShot(0, this, &FirstPaint::Report);
        }
        return QObject::eventFilter(object, event);
    }

private:
    void Report()
    {
        using namespace std::chrono;
        const auto now = duration_cast<microseconds>(system_clock::now().time_since_epoch()).count();
        std::printf("%.2f %ld\n",
                    static_cast<double>(now - qEnvironmentVariable("START").toLongLong()) / 1000, Memory());
        QApplication::quit();
    }

    static long Memory()
    {
        QFile status(QStringLiteral("/proc/self/status"));
        if (!status.open(QIODevice::ReadOnly))
            return 0;
        const QByteArray text = status.readAll();
        const qsizetype at = text.indexOf("VmHWM:");
        return text.mid(at + 6, text.indexOf("kB", at) - at - 6).trimmed().toLong();
    }

    bool m_painted = false;
};
