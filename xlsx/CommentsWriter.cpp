#include "xlsx/CommentsWriter.h"

#include "xlsx/Names.h"
#include "xlsx/StylesWriter.h"

#include <algorithm>

namespace Xlsx {

namespace {

// Shape numbers come in clusters of this size; a drawing names the clusters that are its own.
constexpr unsigned ClusterSize = 1024;
constexpr unsigned ShapesInCluster = ClusterSize - 1; // the first number stays free

const std::string& AuthorOf(const Comment& comment, const std::string& author) {
    return comment.author.empty() ? author : comment.author;
}

std::vector<std::string> AuthorsOf(const std::vector<Comment>& comments, const std::string& author) {
    std::vector<std::string> authors;
    for (const Comment& comment : comments) {
        const std::string& name = AuthorOf(comment, author);
        if (std::find(authors.begin(), authors.end(), name) == authors.end()) authors.push_back(name);
    }
    return authors;
}

void WriteRun(XmlWriter& xml, const TextRun& run) {
    xml.Start("r");
    xml.Start("rPr");
    WriteFontContent(xml, run.font, "rFont");
    xml.End();
    xml.Start("t");
    if (HasBlankEnd(run.text)) xml.Attribute({"xml:space", "preserve"});
    xml.Text(run.text);
    xml.End();
    xml.End();
}

void WriteTexts(XmlWriter& xml, const std::vector<Comment>& comments, const std::string& author) {
    const std::vector<std::string> authors = AuthorsOf(comments, author);
    xml.Declaration();
    xml.Start("comments", {{"xmlns", Names::Main}});
    xml.Start("authors");
    for (const std::string& name : authors) {
        xml.TextElement("author", name);
    }
    xml.End();
    xml.Start("commentList");
    for (const Comment& comment : comments) {
        const auto found = std::find(authors.begin(), authors.end(), AuthorOf(comment, author));
        xml.Start("comment", {{"ref", CellReference(comment.place)}, {"authorId", found - authors.begin()}});
        xml.Start("text");
        for (const TextRun& run : comment.text) {
            WriteRun(xml, run);
        }
        xml.End();
        xml.End();
    }
    xml.End();
    xml.End();
}

void WriteNoteType(XmlWriter& xml) {
    xml.Start(
        "v:shapetype",
        {{"id", "_x0000_t202"}, {"coordsize", "21600,21600"}, {"o:spt", 202}, {"path", "m,l,21600r21600,l21600,xe"}});
    xml.Leaf("v:stroke", {{"joinstyle", "miter"}});
    xml.Leaf("v:path", {{"gradientshapeok", "t"}, {"o:connecttype", "rect"}});
    xml.End();
}

std::string BoxStyle(const Comment& comment) {
    const NoteBox& box = comment.box;
    std::string style = "position:absolute; margin-left:" + NumberText(box.left) +
                        "pt;margin-top:" + NumberText(box.top) + "pt;width:" + NumberText(box.width) +
                        "pt;height:" + NumberText(box.height) + "pt; z-index:2";
    if (comment.view == NoteView::Hidden) style += ";visibility:hidden";
    return style + ";mso-wrap-style:tight";
}

void WriteNoteData(XmlWriter& xml, const Comment& comment) {
    xml.Start("x:ClientData", {{"ObjectType", "Note"}});
    xml.Leaf("x:MoveWithCells");
    xml.Leaf("x:SizeWithCells");
    xml.TextElement("x:AutoFill", "False");
    xml.TextElement("x:Row", std::to_string(comment.place.row));
    xml.TextElement("x:Column", std::to_string(comment.place.column));
    if (comment.view == NoteView::Shown) xml.Leaf("x:Visible");
    xml.End();
}

void WriteNote(XmlWriter& xml, const Comment& comment, unsigned number) {
    xml.Start("v:shape", {{"id", "_x0000_s" + std::to_string(number)},
                          {"type", "#_x0000_t202"},
                          {"style", BoxStyle(comment)},
                          {"fillcolor", "#ffffe1"},
                          {"o:insetmode", "auto"}});
    xml.Leaf("v:fill", {{"color2", "#ffffe1"}});
    xml.Leaf("v:shadow", {{"on", "t"}, {"color", "black"}, {"obscured", "t"}});
    xml.Leaf("v:path", {{"o:connecttype", "none"}});
    xml.Start("v:textbox", {{"style", "mso-direction-alt:auto"}});
    xml.Leaf("div", {{"style", "text-align:left"}});
    xml.End();
    WriteNoteData(xml, comment);
    xml.End();
}

std::string ClusterNames(unsigned first, unsigned count) {
    std::string names = std::to_string(first);
    for (unsigned i = 1; i < count; ++i) {
        names += "," + std::to_string(first + i);
    }
    return names;
}

unsigned ClusterCount(const std::vector<Comment>& comments) {
    return static_cast<unsigned>((comments.size() + ShapesInCluster - 1) / ShapesInCluster);
}

void WriteNotes(XmlWriter& xml, const std::vector<Comment>& comments, unsigned firstCluster) {
    xml.Start("xml", {{"xmlns:v", "urn:schemas-microsoft-com:vml"},
                      {"xmlns:o", "urn:schemas-microsoft-com:office:office"},
                      {"xmlns:x", "urn:schemas-microsoft-com:office:excel"}});
    xml.Start("o:shapelayout", {{"v:ext", "edit"}});
    xml.Leaf("o:idmap", {{"v:ext", "edit"}, {"data", ClusterNames(firstCluster, ClusterCount(comments))}});
    xml.End();
    WriteNoteType(xml);
    unsigned position = 0;
    for (const Comment& comment : comments) {
        const unsigned cluster = firstCluster + position / ShapesInCluster;
        WriteNote(xml, comment, cluster * ClusterSize + 1 + position % ShapesInCluster);
        ++position;
    }
    xml.End();
}

} // namespace

bool WriteComments(Package& package, const CommentList& comments, const std::string& author) {
    unsigned cluster = 1;
    for (const auto& [sheetId, list] : comments.GetSheets()) {
        const std::vector<Comment>& sheetComments = list;
        const std::string number = std::to_string(sheetId);
        const bool isWritten = package.WritePart("/xl/comments" + number + ".xml", [&](XmlWriter& xml) {
            WriteTexts(xml, sheetComments, author);
        }) && package.WritePart("/xl/drawings/vmlDrawing" + number + ".vml", [&](XmlWriter& xml) {
            WriteNotes(xml, sheetComments, cluster);
        });
        if (!isWritten) return false;
        cluster += ClusterCount(sheetComments);
    }
    return true;
}

} // namespace Xlsx
