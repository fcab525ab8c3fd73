// The document of the calibration test, key TARA, files *.TAR. A column of its grid is a concentration, which
// stands in the column's header; a row is a replicate.
#pragma once

#include "framework/document/TestDocument.h"
#include "validation/calibration/TaraCalc.h"

#include <optional>
#include <vector>

class TaraDocument final : public TestDocument
{
    Q_OBJECT

public:
    static constexpr QLatin1StringView kGroups{"Dimensioni0"};
    static constexpr QLatin1StringView kReplicates{"Dimensioni1"};
    static constexpr QLatin1StringView kTotal{"nDatiTot"};

    explicit TaraDocument(const DocumentContext& context);

    /// As many columns as groups, as many rows as replicates; new concentrations are their columns' numbers.
    void ResizeGrid() override;
    /// Concentrations lose the digits that are not shown any more, which can be taken back.
    void ChooseDigits(Digits digits) override;
    QString ResultNotice() const override;
    /// Those of the concentrations, as they are shown and saved.
    const Digits& ConcDigits() const { return FileDigits(); }
    /// The number of a column's header, where it is one.
    std::optional<double> Concentration(int col) const { return ConcNumber(Grid().ColumnHeader(col)); }
    std::vector<NamedValue> Values() const override;
    ChartData Chart(std::size_t index, Language language) const override;

protected:
    void ResetOwn() override;
    void ForgetNumbers() override;
    void ShowInputs() override;
    CalcEnd CalcTest() override;
    void CalcCharts() override;
    void ReadBody(DataFileReader& reader, int fieldCount) override;
    void WriteBody(DataFileWriter& writer) const override;

private:
    /// What the grid holds: concentrations, and responses row by row.
    struct GridNumbers {
        std::vector<double> conc;
        std::vector<double> risp; ///< 0 for an empty cell
        int empty = 0;
    };
    /// What the last calculation that came to its end had and gave.
    struct Last {
        TaraResults results;
        GridNumbers numbers;
        std::int16_t groups = 0;
        std::int16_t replicates = 0;
        std::int16_t count = 0;

        TaraData Data() const
        {
            return {.conc = numbers.conc,
                    .risp = numbers.risp,
                    .groups = groups,
                    .replicates = replicates,
                    .count = count};
        }
    };

    std::optional<double> ConcNumber(const QString& header) const;
    std::optional<GridNumbers> ReadTaraGrid() const;
    void FormatConcHeaders();
    QStringList FormattedHeaders() const;
    /// A header in the digits of the file; a text that is no number as it is.
    QString ConcText(const QString& text) const;
    void ShowResults();
    void ShowTable();
    void ShowTexts();
    void DrawRegression(ChartData& chart, Language language) const;
    void DrawProportionality(ChartData& chart, Language language) const;

    std::optional<Last> m_last;
    std::vector<std::vector<double>> m_limits; ///< the rows of the chart of proportionality
    std::vector<ChartColour> m_colours;        ///< of the groups
};
