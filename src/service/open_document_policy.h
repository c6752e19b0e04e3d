// What to do with a document the printer still has open when a stopped job is taken up.
#pragma once

namespace corvid::service {

enum class OpenDocumentPolicy { kComplete, kCancel };

}  // namespace corvid::service
