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

/// Calls work() once for each allocation that it makes, with this one failing, until all succeed.
/// `prepare()` comes before each call, and `check()` after it.
template <class Prepare, class Work, class Check>
void failEachAllocation(Prepare prepare, Work work, Check check) {
    bool isDone = false;
    for (long step = 1; !isDone; ++step) {
        SCOPED_TRACE("allocation " + std::to_string(step));
        ASSERT_LT(step, 10'000);
        prepare();
        try {
            allocationsLeft = step;
            work();
            isDone = true;
        } catch (const std::bad_alloc&) {
        }
        allocationsLeft = 0;
        check();
    }
}

TEST(Memory, AnInterruptedRefillLeavesNamesAndSearchInAgreement) {
    const std::string longText(100, 'x');
    const JSON json =
        JSON::parse(R"({"ProductName":"abc","ProductSetName":")" + longText +
                    R"(","displayName":"shown","Copyright":")" + longText +
                    R"(","ProductFileName":"file.ttf","Children":[{"Id":1}],"Tags":[1]})");
    std::shared_ptr<FontItem> font;
    const auto find = [&](const std::string& key) {
        return FontList::getFontByKey({font}, key, true).size();
    };
    failEachAllocation(
        [&] {
            font = FontItem::create();
            find("abc"); // so that the font knows its names
        },
        [&] { font->setValue(json); },
        [&] {
            EXPECT_EQ(find("abc"), font->ProductName() == "abc" ? 1U : 0U);
            EXPECT_EQ(find("xxx"), font->ProductSetName() == longText ? 1U : 0U);
            EXPECT_EQ(find("shown"), font->displayName() == "shown" ? 1U : 0U);
            EXPECT_EQ(find("file"), font->ProductFileName() == "file.ttf" ? 1U : 0U);
        });
    EXPECT_EQ(font->Children().size() + font->Tags().size(), 2U);
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
