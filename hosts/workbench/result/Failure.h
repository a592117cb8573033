// Why an action did not come about: a sentence for the user, and a kind by which a program tells its caller.
#pragma once

#include <string>
#include <utility>

namespace workbench {

/// The numbers with which a program ends.
enum class ExitCode : int { Done = 0, Usage = 2, Input = 3, Findings = 4, Output = 5 };

/// The text names the file or value and says what to do. Where only the caller knows how the user gave a value, the
/// text is about the value alone and the caller names it.
class [[nodiscard]] Failure {
public:
    /// What was asked for makes no sense.
    static Failure Usage(std::string text) { return {ExitCode::Usage, std::move(text)}; }
    /// What is to be read is missing or unusable.
    static Failure Input(std::string text) { return {ExitCode::Input, std::move(text)}; }
    /// All is done, and the caller wanted to be stopped by what was found.
    static Failure Findings(std::string text) { return {ExitCode::Findings, std::move(text)}; }
    /// What is to be kept cannot be written.
    static Failure Output(std::string text) { return {ExitCode::Output, std::move(text)}; }

    ExitCode GetCode() const { return code; }
    const std::string& GetText() const { return text; }
    /// The same with "name: " before the text.
    Failure Named(const std::string& name) const { return {code, name + ": " + text}; }

private:
    Failure(ExitCode code, std::string text) : code(code), text(std::move(text)) {}

    ExitCode code;
    std::string text;
};

/// One of the factories above, for those who do not know themselves what a failure keeps their caller from.
using MakeFailure = Failure (*)(std::string text);

} // namespace workbench
