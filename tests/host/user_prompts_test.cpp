#include <gtest/gtest.h>

#include <sstream>
#include <vector>

#include "host/stream_user_prompts.h"

namespace corvid::host {
namespace {

TEST(StreamUserPrompts, WritesTitleAndTextAndAnswersWithoutWaiting) {
    std::ostringstream out;
    std::vector<std::string> echoed;
    StreamUserPrompts prompts(out, [&](const std::string& message) { echoed.push_back(message); });
    EXPECT_EQ(prompts.MessageBox("Desea emitirlo", PromptButtons::kYesNo, PromptIcon::kNone, ""),
              PromptAnswer::kYes);
    EXPECT_EQ(prompts.InputBox("Texto:", "Buscar", "previo"), "previo");
    EXPECT_NE(out.str().find("Buscar\nTexto:"), std::string::npos);
    EXPECT_EQ(echoed, std::vector<std::string>{"PrinterFiscalCorvid: Desea emitirlo"});
}

}  // namespace
}  // namespace corvid::host
