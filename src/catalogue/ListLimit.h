#pragma once

#include <stdexcept>

// Catalogue lists refuse to grow past the container's limit with the standard
// length error.
template <class List>
void GxCheckListRoom(const List& list) {
    if (list.size() >= list.max_size()) throw std::length_error("list too long");
}
