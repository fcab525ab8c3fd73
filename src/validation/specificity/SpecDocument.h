// The document of the specificity test, key SPEC, files *.SPC.
#pragma once

#include "framework/document/TestDocument.h"
#include "validation/specificity/SpecCalc.h"

#include <array>
#include <optional>

class SpecDocument final : public TestDocument
{
    Q_OBJECT

public:
    static constexpr QLatin1StringView kGruppoA{"GruppoA"};
    static constexpr QLatin1StringView kGruppoB{"GruppoB"};

    explicit SpecDocument(const DocumentContext& context);

    void ResetSpec() { ResetDocument(); }
    /// As many rows as the larger group has; the cells below the other group's size are empty and locked.
    void ResizeSpecGrid();
    bool CalcSpec();
    void ReadSpecFromFile(const QString& fileName) { ReadFromFile(fileName); }
    void WriSpecToFile(const QString& fileName) { WriteToFile(fileName); }

    int InputCount() const override { return 3; }
    std::span<const SizeField> SizeFields() const override;
    std::span<const ResultField> ResultFields() const override;
    QStringList ConclText(bool english) const override { return {m_conclText[english ? 1 : 0]}; }
    std::optional<std::array<QString, 2>> Verdict() const override { return m_giudizioText; }
    std::vector<const ChartData*> Charts() const override { return {&m_chart}; }
    void SetLanGraf(int language) override;
    std::vector<NamedValue> Values() const override;
    void ResizeGrid() override { ResizeSpecGrid(); }
    bool Calc() override { return CalcSpec(); }

protected:
    Digits DefaultDigits() const override { return {.interi = 6, .decimali = 3}; }
    void ResetSizes() override;
    void ResetResults() override;
    void ReadLines(DataFileReader& reader) override;
    void WriteLines(DataFileWriter& writer) const override;

private:
    /// A column's numbers as its cells show them, and whether none differs from the number of the cell above.
    struct Group {
        std::vector<double> values;
        bool allEqual = true;
    };
    Group ReadGroup(int col, int count) const;
    bool Refuse(const QString& why);
    bool TellNoProbability(SpecEnd end);
    void ShowResults(const SpecResults& results);
    void ShowConclusions(const SpecResults& results, int countA, int countB);
    void ShowVerdict(const SpecResults& results);
    void FillChart();

    std::optional<SpecResults> m_results;
    std::array<QString, 2> m_conclText;    ///< Italian, English
    std::array<QString, 2> m_giudizioText; ///< Italian, English
    ChartData m_chart{QStringLiteral("VtGrafSpec")};
};
