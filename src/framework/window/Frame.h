// What a test window asks of the frame around it.
#pragma once

#include <QAnyStringView>
#include <QStringView>

/// How the frame arranges its windows; the values are those of its arrange operation.
enum class Arrangement { Cascade = 0, TileHorizontally = 1, TileVertically = 2, Icons = 3 };

class Frame
{
public:
    virtual ~Frame() = default;
    /// Whether the program has the window of this test.
    virtual bool HasTest(QStringView key) const = 0;
    /// Shows the window of this test, made anew where it is not open.
    virtual void ShowTest(QStringView key) = 0;
    /// Whether a window of this class name is open.
    virtual bool FormIsOpen(QAnyStringView windowClass) const = 0;
    virtual void Arrange(Arrangement arrangement) = 0;
    /// Ends the program as the File menu ends it: changed documents ask to be saved, and may refuse.
    virtual void EndProgram() = 0;
};
