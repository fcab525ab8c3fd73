// A document that no laboratory needs, with all that a document can have: three grids, headers that are data,
// sizes with two ends, options, a notice, two tables, two charts. It stands under the key of a test that it
// is not.
#pragma once

#include "framework/document/Define.h"
#include "framework/document/GridRows.h"
#include "framework/document/Messages.h"
#include "framework/document/TestDocument.h"
#include "framework/files/DataFileReader.h"
#include "framework/files/DataFileWriter.h"
#include "framework/text/Conclusions.h"
#include "framework/text/TextNumber.h"
#include "stats/CheckedArithmetic.h"
#include "stats/RuntimeFailure.h"

inline const DocumentShape& MadeUpShape()
{
    using namespace Qt::StringLiterals;
    static const DocumentShape kShape = {
        .key = "TARA"_L1,
        .initialUnit = u"mg"_s,
        .grids = 3,
        .headersAreData = true,
        .digits = {.interi = 5, .decimali = 2},
        .olderDigits = Digits{.interi = 3, .decimali = 1},
        .sizes = {{.control = "Dimensioni0"_L1,
                   .caption = u"N. gruppi"_s,
                   .initial = u"3"_s,
                   .minimum = 3,
                   .maximum = 15,
                   .refuses = SizeField::Refuses::Outside,
                   .fallback = SizeField::Fallback::GridRows,
                   .beeps = true,
                   .countsColumns = true,
                   .counted = u"gruppi"_s},
                  {.control = "Dimensioni1"_L1,
                   .caption = u"N. dati per gruppo"_s,
                   .initial = u"4"_s,
                   .minimum = 2,
                   .maximum = 40,
                   .shownMinimum = 3,
                   .rowsOf = SizeField::kAllColumns}},
        .options = {{"Option1"_L1, u"1 Livello"_s, 1},
                    {"Option2"_L1, u"2 Livelli"_s, 2, false},
                    {"Option3"_L1, u"3 Livelli"_s, 3}},
        .fields = {{"nDatiTot"_L1, FieldKind::Size, u"N. dati totali"_s, u"12"_s},
                   {"Somma"_L1, FieldKind::Result, u"Somma"_s},
                   {"Esito"_L1, FieldKind::Result, u"Esito"_s, u"NONE"_s},
                   {"LabelLivelli"_L1, FieldKind::Caption, {}},
                   {"LabelData2"_L1, FieldKind::Caption, {}},
                   {"LabelStima"_L1, FieldKind::Notice, {}, {}, u"(stima)"_s}},
        .tables = {{"SprLinearita"_L1,
                    u"Analisi della varianza"_s,
                    {u"Variazione"_s, u"Devianza"_s, u"GdL"_s},
                    {u"Regressione"_s, u"Totali"_s},
                    {u"00"_s, u"0-"_s}},
                   {"GridMedieSerie"_L1, u"Medie"_s, {}}},
        .lines = {{FileLine::Kind::Reserved},
                  {FileLine::Kind::Count, "Dimensioni1"_L1},
                  {FileLine::Kind::Count, "Dimensioni0"_L1},
                  {FileLine::Kind::Text, "nDatiTot"_L1, u"N. dati totali"_s},
                  {FileLine::Kind::Blank},
                  {FileLine::Kind::Own, "Livelli"_L1}},
        .charts = {{"VtGrafRegr"_L1}, {"VtGrafProp"_L1, u"Residui"_s}},
        .survives = FailureKind::Overflow,
    };
    return kShape;
}

class MadeUpDocument : public TestDocument
{
public:
    explicit MadeUpDocument(const DocumentContext& context) : TestDocument(MadeUpShape(), context) {}

    void ResizeGrid() override
    {
        const int columns = Count("Dimensioni0");
        const int rows = Count("Dimensioni1");
        SetControlText("nDatiTot", QString::number(columns * rows));
        for (DataGrid* grid : Grids()) {
            grid->SetSize(rows, columns);
            grid->FillEmptyWithZero();
        }
        for (int col = 0; col < columns; ++col) {
            if (Grid().ColumnHeader(col).isEmpty())
                Grid().SetColumnHeader(col, Grid().Format().Text(col + 1));
        }
    }

    /// The last column of the row is the first by the second.
    void CellsEdited(DataGrid& grid, const GridChange& change) override
    {
        if (change.part != GridChange::Part::Cells)
            return;
        for (int row = change.block.row; row < change.block.row + change.block.rows; ++row)
            grid.SetValue(row, grid.Cols() - 1,
                          (Real(grid.TextNumber(row, 0)) / Real(grid.TextNumber(row, 1))).Value());
    }

    std::vector<NamedValue> Values() const override
    {
        using namespace Qt::StringLiterals;
        if (!m_sum)
            return {};
        return {{"sum"_L1, *m_sum},
                {"significant"_L1, *m_sum > 10},
                {"levels"_L1, std::vector<std::optional<double>>{m_sum, std::nullopt}}};
    }

    ChartData Chart(std::size_t index, Language language) const override
    {
        ChartData chart = TestDocument::Chart(index, language);
        if (!m_sum || !m_drawable)
            return chart;
        static const InBoth<QString> kTitle = {QStringLiteral("Regressione"), QStringLiteral("Linearity")};
        chart.title = kTitle[language];
        chart.x.title = index == 0 ? QStringLiteral("curva") : QStringLiteral("residui");
        chart.x.scale = ChartScale{1, 2};
        chart.footnote = ChartFootnote(language);
        chart.rows = {{1, *m_sum}, {2, 2 * *m_sum}};
        return chart;
    }

protected:
    void ResetOwn() override
    {
        for (DataGrid* grid : Grids()) {
            grid->SetSize(0, 0); // the headers go, too
            grid->SetSize(Count("Dimensioni1"), Count("Dimensioni0"));
        }
        SelectOption(1);
    }
    void ForgetNumbers() override { m_sum.reset(); }
    void ShowOption() override
    {
        SetControlText("LabelLivelli", Option() ? OptionCaption(*Option()) : QString());
        SetControlVisible("Esito", Option() == 3);
        SetControlVisible("LabelData2", Option() != 3);
    }
    void ShowInputs() override
    {
        SetControlText("LabelData2", QStringLiteral("Inferiore (%1)").arg(InputData(kUnitInput)));
    }
    void ShowReset() override { Table("GridMedieSerie")->Fill({{QStringLiteral("1"), Shown(0)}}); }
    /// As a curve does that leaves the range of numbers.
    void CalcCharts() override
    {
        m_drawable = *m_sum < 1000;
        if (!m_drawable)
            throw RuntimeFailure(FailureKind::Overflow);
    }

    CalcEnd CalcTest() override
    {
        double sum = 0;
        for (int cell = 0; cell < Grid().Rows() * Grid().Cols(); ++cell)
            sum += Grid().TextNumber(cell / Grid().Cols(), cell % Grid().Cols());
        if (sum == 0)
            return CalcEnd::SumIsZero;
        if (sum < 0) {
            Context().messages.Show(MessageIcon::Exclamation, Context().define.AppTitle,
                                    QStringLiteral("somma\nnegativa"));
            return CalcEnd::Refused;
        }
        m_sum = sum;
        SetControlText("Somma", Shown(sum));
        SetControlText("Esito", QStringLiteral("bene"));
        SetControlVisible("LabelStima", true);
        Table("SprLinearita")->Fill({{Shown(sum), QStringLiteral("1")}, {Shown(2 * sum)}});
        Table("GridMedieSerie")->Fill({{QStringLiteral("1"), Shown(sum)}, {QStringLiteral("2"), Shown(0)}});
        SetConclText({{FillTemplate(QStringLiteral("somma #1#"), {{1, Shown(sum)}})},
                      {FillTemplate(QStringLiteral("sum #1#"), {{1, Shown(sum)}})}});
        SetConclusions(ConclText(Language::Italian).constFirst());
        return CalcEnd::Done;
    }

    void ReadOwnLine(QLatin1StringView /*control*/, const QString& text) override
    {
        SelectOption(text == u"1" ? std::optional(1) : text == u"3" ? std::optional(3) : std::nullopt);
    }
    QString WriteOwnLine(QLatin1StringView /*control*/) const override
    {
        return QString::number(Option().value_or(0));
    }
    void ReadBody(DataFileReader& reader, int fieldCount) override
    {
        for (DataGrid* grid : Grids())
            grid->SetSize(Count("Dimensioni1"), Count("Dimensioni0"));
        for (int col = 0; col < Grid().Cols(); ++col)
            Grid().SetColumnHeader(col, Shown(PointTextToDouble(reader.ReadField())));
        for (DataGrid* grid : Grids())
            ReadRows(reader, *grid, fieldCount);
    }
    void WriteBody(DataFileWriter& writer) const override
    {
        for (const QString& header : Grid().Cells().headers)
            writer.WriteText(QString(header).replace(u',', u'.'), u"Concentrazioni");
        TestDocument::WriteBody(writer);
    }

private:
    std::optional<double> m_sum;
    bool m_drawable = false;
};
