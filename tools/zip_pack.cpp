// Packs files into a ZIP archive under their base names.
#include "zip/ZipArchiveWriter.h"

#include <cstdio>
#include <filesystem>
#include <string>

namespace {

int Fail(const char* what, const std::string& path, zip::ZipResult result) {
    std::fprintf(stderr, "zip_pack: %s '%s': %s\n", what, path.c_str(), zip::ZipResultText(result));
    return 1;
}

std::string BaseName(const std::string& path) {
#ifdef _WIN32
    return path.substr(path.find_last_of("/\\:") + 1);
#else
    return path.substr(path.rfind('/') + 1);
#endif
}

} // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount < 2 || arguments[1][0] == '-') {
        std::fprintf(stderr, "usage: zip_pack OUT.zip FILE...\n"
                             "Packs the files under their base names; an archive that is there is replaced.\n");
        return 2;
    }
    const std::string archivePath = arguments[1];
    zip::ZipArchiveWriter writer;
    zip::ZipResult result = writer.Create(archivePath);
    if (result != zip::ZipResult::Success) return Fail("cannot create", archivePath, result);
    int exitCode = 0;
    for (int i = 2; i < argumentCount && exitCode == 0; ++i) {
        const std::string path = arguments[i];
        result = writer.AddFile(BaseName(path), path);
        if (result != zip::ZipResult::Success) exitCode = Fail("cannot add", path, result);
    }
    result = writer.Close();
    if (result != zip::ZipResult::Success) exitCode = Fail("cannot finish", archivePath, result);
    std::error_code ignored;
    const bool isFile = std::filesystem::is_regular_file(archivePath, ignored); // and no device or pipe
    if (exitCode != 0 && isFile) std::remove(archivePath.c_str());
    return exitCode;
}
