// Exceptions end at the guard, with a code for the host and a line in its report.
#include "General/CallbackGuard.h"

#include <gtest/gtest.h>

#include "support/NullHost.h"

namespace {

class Alerts : public test::NullRoles {
public:
    void WriteReport(const std::string& line) override {
        if (fails) throw std::runtime_error("report");
        lines.push_back(line);
    }
    bool fails = false;
    std::vector<std::string> lines;
};

TEST(CallbackGuard, TurnsExceptionsIntoCodes) {
    Alerts alerts;
    test::NullHost host;
    host.alerts = &alerts;
    const auto throwing = [](auto what) { return [what]() -> host::ErrorCode { throw what; }; };
    EXPECT_EQ(General::RunGuarded(&host, "fine", [] { return host::ErrorCode{7}; }), 7);
    EXPECT_TRUE(alerts.lines.empty());
    EXPECT_EQ(General::RunGuarded(&host, "a", throwing(std::bad_alloc())), host::Errors::OutOfMemory);
    EXPECT_EQ(General::RunGuarded(&host, "b", throwing(std::runtime_error("why"))), host::Errors::General);
    EXPECT_EQ(General::RunGuarded(&host, "c", throwing(3)), host::Errors::General);
    EXPECT_EQ(alerts.lines, (std::vector<std::string>{"a: out of memory", "b: why", "c: unknown failure"}));
    alerts.fails = true;
    EXPECT_EQ(General::RunGuarded(&host, "x", throwing(std::runtime_error("body"))), host::Errors::General);
    EXPECT_EQ(General::RunGuarded(nullptr, "x", throwing(std::runtime_error("body"))), host::Errors::General);
}

} // namespace
