// The "S3" reply (fields split at line feeds) read into PrinterResponse3.
// Properties: nothing raises; the flag table has nFlags + 1 entries, each a two-character
// field's value (-9 to 99); Flag is -1 outside the table; the record can always be shown.
#include <cstdint>
#include <string>

#include "fuzz_support.h"
#include "host/trace_log.h"
#include "records/printer_response3.h"
#include "session/responses.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace corvid;
    fuzz::ProcessSetup setup;
    const session::Fields fields = fuzz::ReplyFields(data, size);
    host::TraceLog trace;
    trace.SetIsDebug(true);
    trace.SetFileEnabled(false);
    trace.AddSink([](const std::string&) {});

    records::PrinterResponse3 record;
    record.loadFromResponse(fields, trace);

    FUZZ_CHECK(record.nFlags >= -1);
    FUZZ_CHECK(record.Flag(-1) == -1);
    FUZZ_CHECK(record.Flag(record.nFlags + 1) == -1);
    for (std::int32_t n = 0; n <= record.nFlags; ++n) {
        FUZZ_CHECK(record.Flag(n) >= -9 && record.Flag(n) <= 99);
    }
    (void)record.toString();
    return 0;
}
