// What the module of the charts offers to the program that loads it.
#pragma once

class ChartPainter;
class QCoreApplication;

using CreatePainterRoutine = ChartPainter* (*)();
using CreateApplicationRoutine = QCoreApplication* (*)(int& argc, char** argv);

inline constexpr const char* kCreatePainter = "QuorelCreatePainter";
inline constexpr const char* kCreateApplication = "QuorelCreateApplication";
