// Namespaces, relationship types and content types of a spreadsheet package.
#pragma once

namespace Xlsx::Names {

constexpr char Main[] = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
constexpr char Relationships[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
constexpr char Compatibility[] = "http://schemas.openxmlformats.org/markup-compatibility/2006";
constexpr char SheetExtension[] = "http://schemas.microsoft.com/office/spreadsheetml/2009/9/ac";
constexpr char MainExtension[] = "http://schemas.microsoft.com/office/spreadsheetml/2009/9/main";
constexpr char Drawing[] = "http://schemas.openxmlformats.org/drawingml/2006/main";
constexpr char SheetDrawing[] = "http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing";
constexpr char Chart[] = "http://schemas.openxmlformats.org/drawingml/2006/chart";
constexpr char ChartExtension[] = "http://schemas.microsoft.com/office/drawing/2007/8/2/chart";
constexpr char PackageRelationships[] = "http://schemas.openxmlformats.org/package/2006/relationships";
constexpr char PackageTypes[] = "http://schemas.openxmlformats.org/package/2006/content-types";

/// Relationship types.
namespace Relation {
constexpr char Document[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument";
constexpr char CoreProperties[] =
    "http://schemas.openxmlformats.org/package/2006/relationships/metadata/core-properties";
constexpr char ExtendedProperties[] =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/extended-properties";
constexpr char Worksheet[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/worksheet";
constexpr char Chartsheet[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/chartsheet";
constexpr char CalculationChain[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/calcChain";
constexpr char SharedStrings[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/sharedStrings";
constexpr char Styles[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/styles";
constexpr char Theme[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/theme";
constexpr char Drawing[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/drawing";
constexpr char VmlDrawing[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/vmlDrawing";
constexpr char Comments[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/comments";
constexpr char Image[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/image";
constexpr char Chart[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/chart";
} // namespace Relation

} // namespace Xlsx::Names
