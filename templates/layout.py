"""Lays the form description out as the eleven sheets of one workbook."""
from flatods import Sheet, Workbook, make_address, parse_address

HEAD = dict(bold=True, fill="#d9d9d9", border="thin", align="center", wrap=True)
SUBHEAD = dict(fill="#ececec", border="thin", align="center", wrap=True)
CAPTION = dict(border="thin", fill="#f7f7f7")
FIGURE = dict(border="thin", align="end", format="tonnes")
TOTAL = dict(border="thin", align="end", format="tonnes", bold=True, fill="#ececec")
BLOCKED = dict(border="thin", align="center", fill="#c4c4c4", color="#595959")
NOTE = dict(size=8, color="#404040")
LABEL = dict(size=10, align="end")
INPUT = dict(border="line", size=10, format="text", shrink=True)


def version_value(text):
    """A version in hundredths, the digits after the point being a whole number: "2.9" is 209, "2.10" is 210."""
    whole, _, fraction = text.partition(".")
    return int(whole) * 100 + int(fraction or 0)


class Form:
    def __init__(self, description, file):
        self.form, self.file, self.texts = description, file, description["texts"]
        since = {name: version_value(file["version"]) >= version_value(first)
                 for name, first in description["since"].items()}
        self.new_layout, self.new_intro, self.fixed_quarter = (
            since["new_layout"], since["new_intro"], since["fixed_quarter"])
        self.intro = description["intro"]["new" if self.new_intro else "old"]
        self.grand_totals = {}

    def workbook(self):
        book = Workbook(self.texts["title"], f"{self.texts['version']} {self.file['version']}")
        figures = [self._pallets(sheet) if sheet["kind"] == "pallets" else self._figures(sheet)
                   for sheet in self.form["sheets"]]
        book.sheets = [self._introduction(), *figures]
        return book

    # "Úvod" ---------------------------------------------------------------------------------------------------------

    def _introduction(self):
        sheet = Sheet("Úvod", [2.4, 2.6, 3.4, 2.6, 2.6, 3.2, 3.2, 0.8, 1.6, 9.6, 3.2], 0.7)
        sheet.heights[2] = 1.1
        sheet.put("A1", self.file["version"], format="text", align="end", **NOTE)
        sheet.put("B1:D1", self.texts["version"], **NOTE)
        sheet.put("A2:K2", self.texts["title"], size=18, bold=True, underline="thick")
        sheet.put("A3:K3", self.texts["subtitle"], size=10, color="#404040")
        sheet.put("A4:C4", "Výkaz za", **LABEL)
        quarter = self.file.get("quarter") if self.fixed_quarter else None
        sheet.put("D4", quarter, border="line", size=11, bold=True, align="center", format="ordinal")
        sheet.put("E4:G4", f"čtvrtletí {self.file['year']}", size=11, bold=True)
        sheet.put("A5:C5", "Druh výkazu:", **LABEL)
        sheet.put("D5:E5", self.form["intro"]["kind"], border="line", size=11, bold=True, align="center", format="text")
        sheet.put("F5:G5", self.form["intro"]["kind_hint"], **NOTE)
        for key, text in (("company", "Údaje o společnosti"), ("contact", "Kontaktní údaje")):
            row = self.intro[key]
            sheet.put(f"A{row}:G{row}", text, bold=True, fill="#d9d9d9", size=10)
        for first, last, top, bottom, text in self.intro["fields"]:
            sheet.put(first if first == last else f"{first}:{last}", text, **LABEL)
            sheet.put(f"{top}:{bottom}", **INPUT)
        self._declaration(sheet, self.intro["contact"] + 7)
        self._overview(sheet)
        return sheet

    def _declaration(self, sheet, row):
        texts = self.form["intro"]
        sheet.put(f"A{row}:G{row}", "Prohlášení", bold=True, fill="#d9d9d9", size=10)
        sheet.put(f"A{row + 1}:G{row + 2}", texts["declaration"], size=9, wrap=True)
        sheet.put(f"A{row + 4}:D{row + 4}", texts["place"], size=9)
        sheet.put(f"E{row + 4}:G{row + 4}", underline="line")
        sheet.put(f"E{row + 5}:G{row + 5}", texts["signature"], align="center", **NOTE)

    def _overview(self, sheet):
        for column, text in zip("IJK", ("List", "Obsah", f"{self.texts['total']} [t]")):
            sheet.put(f"{column}4", text, **HEAD)
        row = 5
        for figures in self.form["sheets"]:
            name = figures["name"]
            sheet.put(f"I{row}", name, border="thin", align="center", format="text")
            sheet.put(f"J{row}", figures["title"], border="thin", wrap=True)
            sheet.put(f"K{row}", formula=f"[$'{name}'.{self.grand_totals[name]}]", **FIGURE)
            row += 1
        row += 1
        sheet.put(f"I{row}:K{row}", "Pokyny k vyplnění", bold=True, fill="#d9d9d9", size=10)
        for number, text in enumerate(self.form["intro"]["guide"], 1):
            sheet.put(f"I{row + number}", f"{number}.", align="center")
            sheet.put(f"J{row + number}:K{row + number}", text)

    # The figure sheets ----------------------------------------------------------------------------------------------

    def _titles(self, sheet, name, title, last_column):
        """Rows 1 and 2: what the sheet is, and whose and of which quarter, so that a single page says it."""
        sheet.heights[1] = 0.85
        sheet.put("A1", name, size=14, bold=True, align="center", fill="#d9d9d9", format="text")
        sheet.put(f"B1:{last_column}1", title, size=14, bold=True)
        split = chr(ord(last_column) - 4)
        company, number, quarter, kind = (f"[$'Úvod'.{cell}]" for cell in ("D7", self.intro["number"], "D4", "D5"))
        sheet.put(f"A2:{split}2", size=9, underline="thick",
                  formula=f'"Společnost: "&{company}&IF({number}="";"";", IČ "&{number})')
        sheet.put(f"{chr(ord(split) + 1)}2:{last_column}2", size=9, align="end", underline="thick",
                  formula=f'"Výkaz za "&IF({quarter}="";"__";{quarter})&". čtvrtletí {self.file["year"]}, "&{kind}')

    def _figures(self, description):
        kind, name = description["kind"], description["name"]
        shift = 1 if self.new_layout else 0
        types = [t for t in self.form["columns"]["types"] if self.new_layout or not t.get("new_layout")]
        first_column = parse_address(types[0]["first"] + "1")[1]
        total_column = parse_address(types[-1]["first"] + "1")[1] + 3
        last = make_address(1, total_column)[0]
        row_key = "one_way" if kind == "one-way" else "reusable"
        groups = [(g["text"], [m for m in g["materials"] if row_key in m]) for g in self.form["groups"]]
        first_row = groups[0][1][0][row_key] + shift
        total_row = groups[-1][1][-1][row_key] + shift + 1

        figure_width = 2.15 if self.new_layout else 2.75
        sheet = Sheet(name, [3.0, 5.4] + [figure_width] * (total_column - first_column) + [2.6], 0.56)
        self._titles(sheet, name, description["title"], last)
        heads = first_row - 2
        if self.new_layout:
            sheet.put(f"C{heads - 1}:{last}{heads - 1}", self.texts["band"], **HEAD)
        sheet.put(f"A{heads - shift}:B{heads + 1}", self.texts["material"], **HEAD)
        sheet.put(f"{last}{heads}:{last}{heads + 1}", f"{self.texts['total']} [t]", **HEAD)
        sheet.heights[heads], sheet.heights[heads + 1] = 0.65, 1.0
        ways = self.form["columns"]["fates" if kind == "discarded" else "origins"]
        for packaging in types:
            column = parse_address(packaging["first"] + "1")[1]
            sheet.put(f"{make_address(heads, column)}:{make_address(heads, column + 2)}", packaging["caption"], **HEAD)
            for offset, text in enumerate(ways):
                sheet.put(make_address(heads + 1, column + offset), text, **SUBHEAD)

        for text, materials in groups:
            top, bottom = materials[0][row_key] + shift, materials[-1][row_key] + shift
            sheet.put(f"A{top}:A{bottom}", text, bold=True, wrap=True, **CAPTION)
            for material in materials:
                row = material[row_key] + shift
                sheet.put(f"B{row}", material["text"], **CAPTION)
                for packaging in types:
                    column = parse_address(packaging["first"] + "1")[1]
                    open_cells = packaging["text"] in material.get("only", [packaging["text"]])
                    for offset in range(3):
                        self._figure(sheet, make_address(row, column + offset), open_cells)
                sheet.put(f"{last}{row}", **TOTAL,
                          formula=f"SUM([.C{row}:.{make_address(row, total_column - 1)}])")
        sheet.put(f"A{total_row}:B{total_row}", self.texts["total"], bold=True, fill="#ececec", border="thin")
        for column in range(first_column, total_column + 1):
            letter = make_address(1, column)[0]
            sheet.put(f"{letter}{total_row}", formula=f"SUM([.{letter}{first_row}:.{letter}{total_row - 1}])", **TOTAL)
        self._notes(sheet, total_row + 1, last, description)
        self.grand_totals[name] = f"{last}{total_row}"
        return sheet

    def _figure(self, sheet, corners, is_open):
        if is_open:
            sheet.put(corners, **FIGURE)
        else:
            sheet.put(corners, self.texts["not_applicable"], **BLOCKED)

    def _notes(self, sheet, row, last, description):
        for text in (self.texts["note"], description.get("note")):
            if text:
                sheet.put(f"A{row}:{last}{row}", text, **NOTE)
                row += 1

    def _pallets(self, description):
        pallets, name = self.form["pallets"], description["name"]
        shift = -1 if self.new_layout else 0
        rows = pallets["rows"]
        first_row, total_row = rows[0]["row"] + shift, rows[-1]["row"] + shift + 1
        total_first, total_last = pallets["total"]["column"], pallets["total"]["last"]
        sheet = Sheet(name, [1.6, 4.2, 2.0, 2.0] + [2.2] * 8, 0.62)
        self._titles(sheet, name, description["title"], total_last)
        heads = first_row - 1
        sheet.heights[heads] = 1.0
        first_column = pallets["columns"][0]["column"]
        sheet.put(f"{first_column}{heads - 1}:{total_last}{heads - 1}", self.texts["band"], **HEAD)
        sheet.put(f"A{heads - 1}:A{heads}", "Č.", **HEAD)
        sheet.put(f"B{heads - 1}:D{heads}", "Obal", **HEAD)
        for column in pallets["columns"]:
            sheet.put(f"{column['column']}{heads}:{column['last']}{heads}", column["caption"], **HEAD)
        sheet.put(f"{total_first}{heads}:{total_last}{heads}", f"{self.texts['total']} [t]", **HEAD)
        for number, entry in enumerate(rows, 1):
            row = entry["row"] + shift
            sheet.put(f"A{row}", f"{number}.", align="center", **CAPTION)
            sheet.put(f"B{row}:D{row}", entry["text"], **CAPTION)
            for column in pallets["columns"]:
                self._figure(sheet, f"{column['column']}{row}:{column['last']}{row}", column["column"] in entry["only"])
            sum_of = ";".join(f"[.{column['column']}{row}]" for column in pallets["columns"])
            sheet.put(f"{total_first}{row}:{total_last}{row}", formula=f"SUM({sum_of})", **TOTAL)
        sheet.put(f"A{total_row}:D{total_row}", self.texts["total"], bold=True, fill="#ececec", border="thin")
        for first, end in [(c["column"], c["last"]) for c in pallets["columns"]] + [(total_first, total_last)]:
            sheet.put(f"{first}{total_row}:{end}{total_row}",
                      formula=f"SUM([.{first}{first_row}:.{first}{total_row - 1}])", **TOTAL)
        self._notes(sheet, total_row + 1, total_last, description)
        self.grand_totals[name] = f"{total_first}{total_row}"
        return sheet
