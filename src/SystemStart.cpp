#include "src/SystemStart.h"

#include "platform/System.h"

namespace {

// Letters of a command line, with the zero at its end.
constexpr std::size_t AddressCommandSize = 2500;
constexpr std::size_t FileCommandSize = 3500;

bool Start(const std::string& commandLine, std::size_t size) {
    return commandLine.size() < size && platform::StartHidden(commandLine);
}

} // namespace

bool OpenWithSystemStart(const std::string& address) {
    return Start(platform::OpenAddressCommand + address, AddressCommandSize);
}

bool OpenFileWithShell(const std::string& path) {
    std::string commandLine = std::string(platform::OpenFileCommand) + '"';
    for (const char letter : path)
        commandLine.append(letter == '"' ? 2 : 1, letter);
    return Start(commandLine + '"', FileCommandSize);
}
