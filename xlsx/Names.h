// Namespaces, relationship types and content types of a spreadsheet package.
#pragma once

namespace Xlsx::Names {

constexpr char main[] = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
constexpr char relationships[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
constexpr char compatibility[] = "http://schemas.openxmlformats.org/markup-compatibility/2006";
constexpr char sheetExtension[] = "http://schemas.microsoft.com/office/spreadsheetml/2009/9/ac";
constexpr char mainExtension[] = "http://schemas.microsoft.com/office/spreadsheetml/2009/9/main";
constexpr char drawing[] = "http://schemas.openxmlformats.org/drawingml/2006/main";
constexpr char sheetDrawing[] = "http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing";
constexpr char chart[] = "http://schemas.openxmlformats.org/drawingml/2006/chart";
constexpr char chartExtension[] = "http://schemas.microsoft.com/office/drawing/2007/8/2/chart";
constexpr char packageRelationships[] = "http://schemas.openxmlformats.org/package/2006/relationships";
constexpr char packageTypes[] = "http://schemas.openxmlformats.org/package/2006/content-types";

/// Relationship types.
namespace Relation {
constexpr char document[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument";
constexpr char coreProperties[] =
    "http://schemas.openxmlformats.org/package/2006/relationships/metadata/core-properties";
constexpr char extendedProperties[] =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/extended-properties";
constexpr char worksheet[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/worksheet";
constexpr char chartsheet[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/chartsheet";
constexpr char calculationChain[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/calcChain";
constexpr char sharedStrings[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/sharedStrings";
constexpr char styles[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/styles";
constexpr char theme[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/theme";
constexpr char drawing[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/drawing";
constexpr char vmlDrawing[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/vmlDrawing";
constexpr char comments[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/comments";
constexpr char image[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/image";
constexpr char chart[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/chart";
} // namespace Relation

} // namespace Xlsx::Names
