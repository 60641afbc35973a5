#include "menu/Arena.h"

#include "platform/HugePages.h"

#include <algorithm>

namespace nesk {

namespace {

// Block sizes grow, so that a small menu uses little memory and a large menu needs few blocks.
constexpr std::size_t SmallestBlock = std::size_t{1} << 13;
constexpr std::size_t LargestBlock = std::size_t{1} << 21;

} // namespace

Arena::~Arena() {
    for (void* block : m_blocks)
        platform::FreeHugePages(block);
}

void* Arena::AllocateInNewBlock(std::size_t size) {
    const std::size_t usual =
        std::min(SmallestBlock << std::min<std::size_t>(m_blocks.size(), 8), LargestBlock);
    // A large object gets a block of its own, and the current block continues to be filled.
    const bool alone = size > usual / 4;
    m_blocks.push_back(nullptr);
    auto* const block = static_cast<char*>(platform::AllocateHugePages(alone ? size : usual));
    m_blocks.back() = block;
    m_bytes += alone ? size : usual;
    if (!alone) {
        m_at = block + size;
        m_end = block + usual;
    }
    return block;
}

} // namespace nesk
