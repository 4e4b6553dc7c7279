#include "base/PhReader.h"
#include "support/RecordingLogger.h"

#include <gtest/gtest.h>

using namespace tavo;

namespace {

class NoFormat : public PhReader
{
public:
    NoFormat() : PhReader(nullptr) {}
    const char* formatName() const override { return ""; }
    int readFile(PhRoot*) override { return 0; }
};

TEST(ReportTest, ADiagnosticReachesTheLoggerOrTheStandardOutputInItsForm)
{
    const std::string longText(600, 'x');
    const Diagnostic diagnostics[] = {{Severity::Error, "d.a2l", 7, "a %s"},
                                      {Severity::Warning, "e", -1, ""},
                                      {Severity::Note, nullptr, 0, longText.c_str()}};
    NoFormat reader;
    RecordingLogger logger;
    testing::internal::CaptureStdout();
    for (PhLogger* sink : {static_cast<PhLogger*>(nullptr), static_cast<PhLogger*>(&logger)}) {
        reader.setLogger(sink);
        for (const Diagnostic& diagnostic : diagnostics)
            reader.report(diagnostic);
    }
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "-: Error (d.a2l:7): a %s\n"
                                                      "-: Warning (e:-1): \n"
                                                      "-: Note (:0): " +
                                                          longText.substr(0, 499 - 11));
    EXPECT_EQ(logger.text, "error: File 'd.a2l', Line 7: a %s\n"
                           "warning: File 'e', Line -1: \n"
                           "message: File '', Line 0: " +
                               longText.substr(0, 499 - 17));
}

} // namespace
