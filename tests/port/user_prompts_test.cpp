#include <gtest/gtest.h>

#include <sstream>

#include "port/recording_user_prompts.h"
#include "port/stream_user_prompts.h"

namespace corvid::port {
namespace {

TEST(StreamUserPrompts, WritesTitleAndTextAndAnswersWithoutWaiting) {
    std::ostringstream out;
    StreamUserPrompts prompts(out);
    EXPECT_EQ(
        prompts.MessageBox("Imposible abrir", PromptButtons::kOk, PromptIcon::kCritical, "modComm"),
        PromptAnswer::kOk);
    EXPECT_EQ(prompts.MessageBox("Desea emitirlo", PromptButtons::kYesNo, PromptIcon::kNone, ""),
              PromptAnswer::kYes);
    EXPECT_EQ(prompts.InputBox("Texto:", "Buscar", "previo"), "previo");
    const std::string text = out.str();
    EXPECT_NE(text.find("modComm\nImposible abrir\n"), std::string::npos);
    EXPECT_NE(text.find("Desea emitirlo"), std::string::npos);
    EXPECT_NE(text.find("Buscar\nTexto:"), std::string::npos);
}

TEST(RecordingUserPrompts, RecordsEveryPromptAndAnswersFromTheQueueThenTheDefault) {
    RecordingUserPrompts prompts;
    prompts.QueueAnswer(PromptAnswer::kNo);
    prompts.QueueInput("abc");
    prompts.set_default_answer(PromptAnswer::kNo);

    EXPECT_EQ(prompts.MessageBox("1", PromptButtons::kYesNo, PromptIcon::kNone, "t"),
              PromptAnswer::kNo);
    EXPECT_EQ(prompts.MessageBox("2", PromptButtons::kOk, PromptIcon::kCritical, ""),
              PromptAnswer::kOk);
    EXPECT_EQ(prompts.MessageBox("3", PromptButtons::kYesNo, PromptIcon::kNone, ""),
              PromptAnswer::kNo);
    EXPECT_EQ(prompts.InputBox("4", "Buscar", "d"), "abc");
    EXPECT_EQ(prompts.InputBox("5", "Buscar", "d"), "d");

    EXPECT_EQ(prompts.texts(), (std::vector<std::string>{"1", "2", "3", "4", "5"}));
    EXPECT_EQ(prompts.prompts()[0].title, "t");
    EXPECT_EQ(prompts.prompts()[1].icon, PromptIcon::kCritical);
    EXPECT_TRUE(prompts.prompts()[3].input_box);
}

}  // namespace
}  // namespace corvid::port
