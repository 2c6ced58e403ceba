#include "capi/FlatSupport.h"

#include <climits>
#include <cstring>

void GxCopyTextResult(const char* text, char* buffer, int bufferLength, int* status) noexcept {
    if (!text) text = "";
    const std::size_t length = std::strlen(text);
    const int reported =
        length > static_cast<std::size_t>(INT_MAX) ? INT_MAX : static_cast<int>(length);
    if (!buffer || bufferLength < 0 || length > static_cast<std::size_t>(bufferLength)) {
        GxSetStatus(status, reported);
        return;
    }
    std::memcpy(buffer, text, length + 1);
    GxSetStatus(status, GXCART_OK);
}
