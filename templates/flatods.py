"""Writes a workbook as one flat ODS file: cells by address, styles as plain dictionaries."""
from xml.sax.saxutils import escape, quoteattr

NAMESPACES = {
    "office": "urn:oasis:names:tc:opendocument:xmlns:office:1.0",
    "style": "urn:oasis:names:tc:opendocument:xmlns:style:1.0",
    "text": "urn:oasis:names:tc:opendocument:xmlns:text:1.0",
    "table": "urn:oasis:names:tc:opendocument:xmlns:table:1.0",
    "fo": "urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0",
    "number": "urn:oasis:names:tc:opendocument:xmlns:datastyle:1.0",
    "svg": "urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0",
    "meta": "urn:oasis:names:tc:opendocument:xmlns:meta:1.0",
    "dc": "http://purl.org/dc/elements/1.1/",
    "of": "urn:oasis:names:tc:opendocument:xmlns:of:1.2",
}

# A flat ODS cell refers to a number format by name; these are all that the form knows. They are Czech in any office.
CZECH = 'number:language="cs" number:country="CZ"'
NUMBER_FORMATS = {
    "tonnes": f'<number:number-style style:name="N-tonnes" {CZECH}><number:number number:decimal-places="4" '
    'number:min-decimal-places="4" number:min-integer-digits="1" number:grouping="true"/></number:number-style>',
    "ordinal": f'<number:number-style style:name="N-ordinal" {CZECH}><number:number number:decimal-places="0" '
    'number:min-integer-digits="1"/><number:text>.</number:text></number:number-style>',
    "text": '<number:text-style style:name="N-text"><number:text-content/></number:text-style>',
}
BORDERS = {"thin": "0.5pt solid #7f7f7f", "thick": "1.5pt solid #404040", "line": "0.5pt solid #404040"}
FONT = "Liberation Sans"


def parse_address(address):
    """"C33" as (row, column), both counted from 1."""
    letters = address.rstrip("0123456789")
    column = 0
    for letter in letters:
        column = column * 26 + ord(letter) - ord("A") + 1
    return int(address[len(letters):]), column


def make_address(row, column):
    return f"{chr(ord('A') + column - 1)}{row}"


class Sheet:
    """One sheet. Every put() takes a cell's address, or the addresses of the two corners that it spans."""

    def __init__(self, name, widths, row_height):
        self.name, self.widths, self.row_height = name, widths, row_height
        self.heights = {}
        self.cells = {}
        self.spans = {}

    def put(self, corners, value=None, *, formula=None, **style):
        first, _, last = corners.partition(":")
        top, left = parse_address(first)
        bottom, right = parse_address(last or first)
        for row in range(top, bottom + 1):
            for column in range(left, right + 1):
                if (row, column) in self.cells:
                    raise ValueError(f"sheet {self.name}: {make_address(row, column)} is taken")
                self.cells[row, column] = (None, None, style)
        self.cells[top, left] = (value, formula, style)
        if (top, left) != (bottom, right):
            self.spans[top, left] = (bottom - top + 1, right - left + 1)

    def extent(self):
        return max(row for row, _ in self.cells), max(max(column for _, column in self.cells), len(self.widths))


class Workbook:
    def __init__(self, title, header):
        self.title, self.header = title, header
        self.sheets = []
        self.styles = {}

    def to_xml(self):
        tables = "".join(self._table(sheet) for sheet in self.sheets)  # first: this is what collects the styles
        names = " ".join(f'xmlns:{prefix}="{uri}"' for prefix, uri in NAMESPACES.items())
        return (
            f'<?xml version="1.0" encoding="UTF-8"?>\n<office:document {names} office:version="1.3" '
            'office:mimetype="application/vnd.oasis.opendocument.spreadsheet">\n'
            f"<office:meta><dc:title>{escape(self.title)}</dc:title></office:meta>\n"
            f"{self._font_and_default()}\n"
            f"<office:automatic-styles>{''.join(NUMBER_FORMATS.values())}{self._automatic_styles()}"
            f"{self._page_layout()}</office:automatic-styles>\n{self._master_page()}\n"
            f"<office:body><office:spreadsheet>\n{tables}</office:spreadsheet></office:body>\n</office:document>\n"
        )

    def _style(self, family, properties):
        key = (family, tuple(sorted(properties.items())))
        return self.styles.setdefault(key, f"{family[:2]}{len(self.styles)}")

    def _table(self, sheet):
        rows, columns = sheet.extent()
        style = self._style("table", {"master": "Form"})
        area = f"$'{sheet.name}'.$A$1:$'{sheet.name}'.${make_address(rows, columns)[0]}${rows}"
        out = [f"<table:table table:name={quoteattr(sheet.name)} table:style-name={quoteattr(style)} "
               f"table:print-ranges={quoteattr(area)}>"]
        for width in sheet.widths:
            out.append(f'<table:table-column table:style-name="{self._style("table-column", {"width": width})}"/>')
        for row in range(1, rows + 1):
            height = self._style("table-row", {"height": sheet.heights.get(row, sheet.row_height)})
            out.append(f'<table:table-row table:style-name="{height}">')
            out.extend(self._cell(sheet, row, column) for column in range(1, columns + 1))
            out.append("</table:table-row>\n")
        out.append("</table:table>\n")
        return "".join(out)

    def _cell(self, sheet, row, column):
        if (row, column) not in sheet.cells:
            return "<table:table-cell/>"
        value, formula, properties = sheet.cells[row, column]
        covered = any(top <= row < top + height and left <= column < left + width and (top, left) != (row, column)
                      for (top, left), (height, width) in sheet.spans.items())
        tag = "table:covered-table-cell" if covered else "table:table-cell"
        attributes = f' table:style-name="{self._style("table-cell", properties)}"'
        if (row, column) in sheet.spans:
            height, width = sheet.spans[row, column]
            attributes += f' table:number-rows-spanned="{height}" table:number-columns-spanned="{width}"'
        if formula is not None:
            attributes += f" table:formula={quoteattr('of:=' + formula)}"
        if isinstance(value, str):
            return f'<{tag}{attributes} office:value-type="string"><text:p>{escape(value)}</text:p></{tag}>'
        if value is not None:
            attributes += f' office:value-type="float" office:value="{value}"'
        return f"<{tag}{attributes}/>"

    def _automatic_styles(self):
        out = []
        for (family, items), name in self.styles.items():
            properties = dict(items)
            head = f'<style:style style:name="{name}" style:family="{family}"'
            if family == "table":
                out.append(f'{head} style:master-page-name="{properties["master"]}"/>')
            elif family == "table-column":
                out.append(f'{head}><style:table-column-properties style:column-width="{properties["width"]}cm"/>'
                           "</style:style>")
            elif family == "table-row":
                out.append(f'{head}><style:table-row-properties style:row-height="{properties["height"]}cm" '
                           'style:use-optimal-row-height="false"/></style:style>')
            else:
                out.append(self._cell_style(head, properties))
        return "".join(out)

    @staticmethod
    def _cell_style(head, properties):
        cell = 'style:vertical-align="{}"'.format(properties.get("valign", "middle"))
        if "fill" in properties:
            cell += f' fo:background-color="{properties["fill"]}"'
        if "border" in properties:
            cell += f' fo:border="{BORDERS[properties["border"]]}"'
        if "underline" in properties:
            cell += f' fo:border-bottom="{BORDERS[properties["underline"]]}"'
        if properties.get("wrap"):
            cell += ' fo:wrap-option="wrap"'
        if properties.get("shrink"):
            cell += ' style:shrink-to-fit="true"'
        align = properties.get("align", "start")
        cell += ' style:text-align-source="fix"'
        font = f'fo:font-size="{properties.get("size", 9)}pt" fo:color="{properties.get("color", "#000000")}"'
        if properties.get("bold"):
            font += ' fo:font-weight="bold"'
        if properties.get("italic"):
            font += ' fo:font-style="italic"'
        number = f' style:data-style-name="N-{properties["format"]}"' if "format" in properties else ""
        margin = ' fo:margin-left="0.15cm"' if align == "start" else ""
        return (f'{head} style:parent-style-name="Default"{number}><style:table-cell-properties {cell}/>'
                f'<style:paragraph-properties fo:text-align="{align}"{margin}/>'
                f"<style:text-properties {font}/></style:style>")

    @staticmethod
    def _font_and_default():
        return (
            f'<office:font-face-decls><style:font-face style:name="{FONT}" svg:font-family="&apos;{FONT}&apos;" '
            'style:font-family-generic="swiss" style:font-pitch="variable"/></office:font-face-decls>\n'
            '<office:styles><style:style style:name="Default" style:family="table-cell"><style:text-properties '
            f'style:font-name="{FONT}" fo:font-size="9pt" fo:language="cs" fo:country="CZ"/></style:style>'
            "</office:styles>"
        )

    @staticmethod
    def _page_layout():
        band = '<style:header-footer-properties fo:min-height="0.7cm" fo:margin-{}="0.2cm"/>'
        return (
            '<style:page-layout style:name="Page"><style:page-layout-properties fo:page-width="29.7cm" '
            'fo:page-height="21cm" style:print-orientation="landscape" fo:margin-top="1cm" fo:margin-bottom="1cm" '
            'fo:margin-left="1.2cm" fo:margin-right="1.2cm" style:scale-to-X="1" style:scale-to-Y="1" '
            'style:table-centering="horizontal" style:print="objects charts drawings"/>'
            f'<style:header-style>{band.format("bottom")}</style:header-style>'
            f'<style:footer-style>{band.format("top")}</style:footer-style></style:page-layout>'
        )

    def _master_page(self):
        def region(side, content):
            return f"<style:region-{side}><text:p>{content}</text:p></style:region-{side}>"

        header = region("left", escape(self.title)) + region("right", escape(self.header))
        footer = region("left", "list <text:sheet-name>?</text:sheet-name>") + region(
            "right", "strana <text:page-number>1</text:page-number> z <text:page-count>1</text:page-count>")
        return (
            '<office:master-styles><style:master-page style:name="Form" style:page-layout-name="Page">'
            f"<style:header>{header}</style:header><style:footer>{footer}</style:footer>"
            "</style:master-page></office:master-styles>"
        )
