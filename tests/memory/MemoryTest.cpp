// What holds when memory runs out. A program of its own, since it replaces operator new.
#include <VelmoCloudEntity/font/FontList.hpp>

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

using namespace VelmoCloudEntity;
using PerchAppLibrary::JSON;

namespace {

/// Allocations until one fails; none fails at zero.
long allocationsLeft = 0;

void* allocateOrNull(std::size_t size) noexcept {
    if (allocationsLeft > 0 && --allocationsLeft == 0)
        return nullptr;
    return std::malloc(size == 0 ? 1 : size);
}

void* allocate(std::size_t size) {
    if (void* const memory = allocateOrNull(size))
        return memory;
    throw std::bad_alloc();
}

TEST(Memory, AnInterruptedRefillLeavesNamesAndSearchInAgreement) {
    const std::string longText(100, 'x');
    const JSON json =
        JSON::parse(R"({"ProductName":"abc","ProductSetName":")" + longText +
                    R"(","displayName":"shown","Copyright":")" + longText +
                    R"(","ProductFileName":"file.ttf","Children":[{"Id":1}],"Tags":[1]})");
    // Refills a font once for each allocation, with this one failing, until all succeed.
    bool isDone = false;
    for (long step = 1; !isDone; ++step) {
        ASSERT_LT(step, 10'000);
        const auto font = FontItem::create();
        const auto isFound = [&font](const std::string& key) {
            return !FontList::getFontByKey({font}, key, true).empty();
        };
        EXPECT_FALSE(isFound("abc")); // so that the font knows its names
        try {
            allocationsLeft = step;
            font->setValue(json);
            isDone = true;
        } catch (const std::bad_alloc&) { // NOLINT(bugprone-empty-catch): isDone stays false
        }
        allocationsLeft = 0;
        EXPECT_EQ(isFound("abc"), font->ProductName() == "abc") << "allocation " << step;
        EXPECT_EQ(isFound("xxx"), font->ProductSetName() == longText) << "allocation " << step;
        EXPECT_EQ(isFound("shown"), font->displayName() == "shown") << "allocation " << step;
        EXPECT_EQ(isFound("file"), font->ProductFileName() == "file.ttf") << "allocation " << step;
        EXPECT_TRUE(!isDone || font->Tags().size() == 1) << font->Tags().size();
    }
}

} // namespace

// All forms, so that none of the sanitizer's own meets one of these.
void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return allocateOrNull(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return allocateOrNull(size);
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
