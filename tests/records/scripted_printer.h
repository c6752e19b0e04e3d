// A printer that answers every query with a set reply and keeps the commands it was sent.
#pragma once

#include "records/response_source.h"

namespace corvid::records {

class ScriptedPrinter : public ResponseSource {
  public:
    Fields GetResponse(std::string_view cmd) override {
        commands.emplace_back(cmd);
        return reply;
    }
    std::vector<Fields> GetMultipleResponses(std::string_view cmd) override {
        commands.emplace_back(cmd);
        return rows;
    }
    std::int32_t tipoPrinter() const override { return 1; }

    Fields reply = {"pfError"};
    std::vector<Fields> rows;
    std::vector<std::string> commands;
};

}  // namespace corvid::records
