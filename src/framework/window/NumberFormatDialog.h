// The counts of integer and decimal digits of a document.
#pragma once

#include "framework/document/DocumentContext.h"
#include "framework/grid/DataGrid.h"
#include "framework/window/Guard.h"

#include <QDialog>
#include <QLineEdit>

#include <array>
#include <cstdint>

class NumberFormatDialog : public QDialog
{
    Q_OBJECT

public:
    /// Shows the digits of the grid.
    NumberFormatDialog(const DataGrid& grid, const DocumentContext& context, Guard guard,
                       QWidget* parent = nullptr);

    /// Empty when the dialog was cancelled; else the counts below are the user's.
    QString NumberFormat;
    std::int16_t NumInteger = 0;
    std::int16_t NumDecimal = 0;

private:
    void Store();
    void Refuse(const QString& text);

    const DataGrid& oGrid;
    DocumentContext m_context;
    Guard m_guard;
    std::array<QLineEdit*, 2> m_numForm{};
};
