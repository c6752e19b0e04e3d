// What a record that reads the printer itself (the daily summary, a fiscal-memory closure)
// needs from the session: the reply retrieval and the printer model. The session
// implements it; tests give a scripted one.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvid::records {

using Fields = std::vector<std::string>;

class ResponseSource {
  public:
    virtual ~ResponseSource() = default;
    // The reply's fields, or the one field "pfError" when the exchange failed.
    virtual Fields GetResponse(std::string_view cmd) = 0;
    // One field array per reply block.
    virtual std::vector<Fields> GetMultipleResponses(std::string_view cmd) = 0;
    virtual std::int32_t tipoPrinter() const = 0;
};

}  // namespace corvid::records
