// Owners give back what they hold, once.
#include "win/handle.h"

#include <gtest/gtest.h>

#include <vector>

#include "win/gdi.h"
#include "win/global_memory.h"

namespace telvar::win {
namespace {

std::vector<int> returned;
int things[3] = {1, 2, 3};

struct WritesDown {
    using Value = int*;
    static void giveBack(int* thing) { returned.push_back(*thing); }
};
using Thing = Owned<WritesDown>;

class OwnedThings : public testing::Test {
protected:
    OwnedThings() { returned.clear(); }
};

TEST_F(OwnedThings, AreGivenBackAtTheEndOfTheScope) {
    {
        const Thing thing(&things[0]);
    }
    EXPECT_EQ(returned, std::vector<int>({1}));
}

TEST_F(OwnedThings, ThatAreMovedAreGivenBackOnce) {
    {
        Thing first(&things[0]);
        Thing second(std::move(first));
        Thing third(&things[1]);
        third = std::move(second);
        EXPECT_EQ(third.get(), &things[0]);
    }
    EXPECT_EQ(returned.size(), 2U);
}

TEST_F(OwnedThings, ThatAreExchangedGoAtOnceAndThatAreReleasedStay) {
    {
        Thing thing(&things[0]);
        thing.reset(&things[1]);
        EXPECT_EQ(returned, std::vector<int>({1}));
        EXPECT_EQ(thing.release(), &things[1]);
        EXPECT_FALSE(thing);
    }
    EXPECT_EQ(returned, std::vector<int>({1}));
}

TEST(Handle, NeitherNullNorWhatAFileThatIsNotThereAnswersIsOne) {
    EXPECT_FALSE(Handle());
    EXPECT_FALSE(Handle(INVALID_HANDLE_VALUE));
    EXPECT_TRUE(Handle(CreateEventW(nullptr, TRUE, FALSE, nullptr)));
}

TEST(Handle, IsClosed) {
    const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    DWORD flags = 0;
    {
        const Handle owned(event);
        EXPECT_TRUE(GetHandleInformation(event, &flags));
    }
    EXPECT_FALSE(GetHandleInformation(event, &flags));
}

TEST(Drawing, ObjectsAreDeletedAndAContextHasItsFormerOneBack) {
    HGDIOBJ object = nullptr;
    {
        const MemoryContext context;
        const HGDIOBJ before = GetCurrentObject(context.get(), OBJ_FONT);
        const Font font(CreateFontW(20, 0, 0, 0, FW_NORMAL, 0, 0, 0, 0, 0, 0, 0, 0, L"Arial"));
        object = font.get();
        {
            const Selected selected(context.get(), font.get());
            EXPECT_EQ(GetCurrentObject(context.get(), OBJ_FONT), object);
        }
        EXPECT_EQ(GetCurrentObject(context.get(), OBJ_FONT), before);
    }
    EXPECT_EQ(GetObjectType(object), 0U);
}

TEST(GlobalMemory, HoldsATextAsTheClipboardWantsIt) {
    const GlobalMemory memory = textBlock(L"145.5\t");
    const Locked<wchar_t> locked(memory.get());
    ASSERT_NE(locked.get(), nullptr);
    EXPECT_STREQ(locked.get(), L"145.5\t");
    EXPECT_EQ(Locked<wchar_t>(nullptr).get(), nullptr);
}

}  // namespace
}  // namespace telvar::win
