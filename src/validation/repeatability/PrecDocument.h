// The document of the repeatability test, key PREC, files *.PRE.
#pragma once

#include "framework/document/ColumnDocument.h"
#include "validation/repeatability/PrecCalc.h"

#include <array>
#include <optional>

class PrecDocument final : public ColumnDocument
{
    Q_OBJECT

public:
    explicit PrecDocument(const DocumentContext& context);

    void ResetPrec() { ResetDocument(); }
    void ResizePrecGrid() { ResizeGrid(); }
    bool CalcPrec();
    void ReadPrecFromFile(const QString& fileName) { ReadFromFile(fileName); }
    void WriPrecToFile(const QString& fileName) { WriteToFile(fileName); }

    int InputCount() const override { return 3; }
    std::span<const ResultField> ResultFields() const override;
    QStringList ConclText(bool english) const override { return {m_conclText[english ? 1 : 0]}; }
    std::vector<const ChartData*> Charts() const override { return {&m_chart}; }
    void SetLanGraf(int language) override;
    std::vector<NamedValue> Values() const override;
    bool Calc() override { return CalcPrec(); }

protected:
    void ResetResults() override;
    void ReadLines(DataFileReader& reader) override;
    void WriteLines(DataFileWriter& writer) const override;

private:
    void ShowResults(const PrecResults& results);
    void ShowConclusions(const PrecResults& results, int count);
    void FillChart(const PrecResults& results);

    std::optional<PrecResults> m_results;
    std::array<QString, 2> m_conclText; ///< Italian, English
    ChartData m_chart{QStringLiteral("VtGrafPrec")};
};
