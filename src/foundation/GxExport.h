#pragma once

// Marks every class and function that libgxcart.so exports; everything else
// is hidden by the build.
#if defined(GXCART_BUILDING)
#define GXCART_API __attribute__((visibility("default")))
#else
#define GXCART_API
#endif
