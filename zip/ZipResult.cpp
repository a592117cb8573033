#include "zip/ZipResult.h"

namespace zip {

namespace {

struct ResultText {
    ZipResult result;
    const char* text;
};

constexpr ResultText Texts[] = {
    {ZipResult::Success, "Success"},
    {ZipResult::HandleNotDuplicated, "Culdn't duplicate handle"},
    {ZipResult::FileNotOpened, "Couldn't create/open file"},
    {ZipResult::OutOfMemory, "Failed to allocate memory"},
    {ZipResult::WriteFailed, "Error writing to file"},
    {ZipResult::EntryNotFound, "File not found in the zipfile"},
    {ZipResult::MoreDataToUnzip, "Still more data to unzip"},
    {ZipResult::CorruptArchive, "Zipfile is corrupt or not a zipfile"},
    {ZipResult::ReadFailed, "Error reading file"},
    {ZipResult::FaultyArguments, "Caller: faulty arguments"},
    {ZipResult::NotAMemoryArchive, "Caller: can only get memory of a memory zipfile"},
    {ZipResult::MemoryArchiveTooSmall, "Caller: not enough space allocated for memory zipfile"},
    {ZipResult::PreviousError, "Caller: there was a previous error"},
    {ZipResult::AdditionsEnded, "Caller: additions to the zip have already been ended"},
    {ZipResult::SizeChanged, "Zip-bug: the anticipated size turned out wrong"},
    {ZipResult::PartiallyUnzipped, "Caller: the file had already been partially unzipped"},
    {ZipResult::MixedCreationAndOpening, "Caller: mixing creation and opening of zip"},
    {ZipResult::NotInitialised, "Zip-bug: internal initialisation not completed"},
    {ZipResult::NotSeekable, "Zip-bug: trying to seek the unseekable"},
    {ZipResult::ChangedMind, "Zip-bug: tried to change mind, but not allowed"},
    {ZipResult::DeflateFault, "Zip-bug: an internal error during flation"},
};

} // namespace

const char* ZipResultText(ZipResult result) {
    for (const ResultText& entry : Texts) {
        if (entry.result == result) return entry.text;
    }
    return "unknown zip result code";
}

} // namespace zip
