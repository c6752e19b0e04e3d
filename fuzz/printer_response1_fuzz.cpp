// The "S1" reply read into PrinterResponse1, the whole reply as one text.
// Properties: with readable stored substitutes nothing raises at all (a reply that does not
// read falls back to them); the serial is either the substitute or the reply's own field
// of the layout its field count picks; the record can always be shown.
#include <cstdint>
#include <string>

#include "fuzz_support.h"
#include "host/library_settings.h"
#include "records/printer_response1.h"
#include "session/responses.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace corvid;
    fuzz::ProcessSetup setup;
    const std::string substitute = "FAKE SERIAL";
    setup.settings().SetIniValue(host::kApplication, "Config\\NimbusPF\\Response1", "Serial",
                                 substitute);
    const std::string reply(reinterpret_cast<const char*>(data), size);

    records::PrinterResponse1 record;
    record.loadFromResponse(reply);

    const session::Fields fields = session::SplitFields(reply);
    const std::size_t serialField = fields.size() < 16 ? 9 : 13;
    FUZZ_CHECK(record.Serial == substitute ||
               (serialField < fields.size() && record.Serial == fields[serialField]));
    (void)record.toString();
    return 0;
}
