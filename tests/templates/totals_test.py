"""Fills every figure cell of one form of each layout, lets the office compute and compares every total.

What the built templates hold besides is read in tests/core/TemplatesTest.cpp; formulas it cannot see.
"""
import csv
import os
import subprocess
import sys
import tempfile
import tomllib
from pathlib import Path

sys.dont_write_bytecode = True
TEMPLATES = Path(__file__).resolve().parents[2] / "templates"
sys.path.insert(0, str(TEMPLATES))
from flatods import make_address, parse_address  # noqa: E402
from layout import Form  # noqa: E402

# The first figure, the last figure, the row total's and the column total's place: old layout, new layout.
AREAS = {
    "1": (("C5", "K34", "L", 35), ("C6", "N35", "O", 36)),
    "2": (("C5", "K33", "L", 34), ("C6", "N34", "O", 35)),
    "3": (("C5", "K33", "L", 34), ("C6", "N34", "O", 35)),
    "4": (("E6", "H8", "K", 9), ("E5", "H7", "K", 8)),
}
PALLET_COLUMNS = ("E", "H")


def fill(sheet, area):
    """Puts another figure, in ten-thousandths, into every open cell and answers with them by row and column."""
    (top, left), (bottom, right) = parse_address(area[0]), parse_address(area[1])
    figures = {}
    for row in range(top, bottom + 1):
        for column in range(left, right + 1):
            value, formula, style = sheet.cells[row, column]
            if value is not None or (sheet.name == "4-1" and make_address(row, column)[0] not in PALLET_COLUMNS):
                continue
            assert formula is None, f"{sheet.name}: a formula in {make_address(row, column)}"
            figures[row, column] = 10007 * len(figures) + 1
            sheet.cells[row, column] = (figures[row, column] / 10000, None, style)
    return figures


def count_of(text):
    """A figure as it is shown, in ten-thousandths: in Czech, whatever the office's language is."""
    assert "." not in text, text
    return round(float("".join(text.split()).replace(",", ".")) * 10000)


def compare(sheet, area, figures, rows):
    def shown(row, column):
        return count_of(rows[row - 1][column - 1])

    total_column, total_row = parse_address(area[2] + "1")[1], area[3]
    for row in {row for row, _ in figures}:
        expected = sum(value for (r, _), value in figures.items() if r == row)
        assert shown(row, total_column) == expected, f"{sheet.name}: total of row {row}"
    for column in {column for _, column in figures}:
        expected = sum(value for (_, c), value in figures.items() if c == column)
        assert shown(total_row, column) == expected, f"{sheet.name}: total of column {make_address(1, column)[0]}"
    assert shown(total_row, total_column) == sum(figures.values()), f"{sheet.name}: grand total"


def main():
    description = tomllib.loads((TEMPLATES / "form.toml").read_text(encoding="utf-8"))
    with tempfile.TemporaryDirectory() as scratch:
        scratch = Path(scratch)
        filled = []
        for is_new, stem, file in ((0, "old", {"version": "1.4", "year": 2003}),
                                   (1, "new", {"version": "2.22", "year": 2012, "quarter": 4})):
            book = Form(description, file).workbook()
            expected = {sheet.name: fill(sheet, AREAS[sheet.name[0]][is_new]) for sheet in book.sheets[1:]}
            (scratch / f"{stem}.fods").write_text(book.to_xml(), encoding="utf-8")
            filled.append((is_new, stem, book, expected))
        # Separator, quote, UTF-8, first line, as shown, every sheet a file of its own.
        csv_filter = "csv:Text - txt - csv (StarCalc):44,34,76,1,,1033,false,true,false,false,false,-1"
        subprocess.run(["soffice", f"-env:UserInstallation={(scratch / 'profile').as_uri()}", "--headless",
                        "--norestore", "--nologo", "--convert-to", csv_filter, "--outdir", str(scratch),
                        *(str(scratch / f"{stem}.fods") for _, stem, _, _ in filled)],
                       check=True, capture_output=True, timeout=100,
                       env={**os.environ, "LC_ALL": "C.UTF-8"})  # a foreign language, and a file name "Úvod"
        for is_new, stem, book, expected in filled:
            tables = {}
            for sheet in book.sheets:
                with (scratch / f"{stem}-{sheet.name}.csv").open(encoding="utf-8", newline="") as table:
                    tables[sheet.name] = list(csv.reader(table))
            for sheet in book.sheets[1:]:
                compare(sheet, AREAS[sheet.name[0]][is_new], expected[sheet.name], tables[sheet.name])
            overview = {row[8]: row[10] for row in tables["Úvod"][4:14]}
            for name, figures in expected.items():
                assert count_of(overview[name]) == sum(figures.values()), f"Úvod: {name}"


main()
