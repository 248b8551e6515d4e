#include <du/SmartPtr.h>

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <unordered_set>
#include <vector>

namespace {

struct Plain : virtual du::RefCounted {
    int number = 0;
};

struct Left : virtual du::RefCounted {};
struct Right : virtual du::RefCounted {};
struct Both : Left, Right {};

/// Hands itself out while it is being made, as items do that register with others.
struct SelfRegistering : virtual du::RefCounted {
    explicit SelfRegistering(std::vector<du::SmartPtr<SelfRegistering>>* registry) {
        du::ConstructionGuard const guard(this);
        du::SmartPtr<SelfRegistering> const self(this);
        if (registry) registry->push_back(self);
    }
};

/// Hands out pointers to itself while it is torn down.
struct HandsItselfOut : virtual du::RefCounted {
    explicit HandsItselfOut(std::string* diary) : log(diary) {}
    ~HandsItselfOut() override { *log += "deleted "; }

    void ZeroReferenceCountHook() override {
        AddRef();
        { du::SmartPtr<HandsItselfOut> const self(this); }
        *log += "torn ";
        if (DropReference()) delete this;
    }

    std::string* log;
};

TEST(RefCounted, CountStartsAtZeroAndFollowsThePointers) {
    auto* object = new Plain;
    EXPECT_EQ(object->GetRefCount(), 0u);
    du::SmartPtr<Plain> const first(object);
    {
        du::SmartPtr<Plain> const second = first;
        EXPECT_EQ(object->GetRefCount(), 2u);
    }
    EXPECT_EQ(object->GetRefCount(), 1u);
}

TEST(RefCounted, TheLastPointerDeletes) {
    auto const before = du::RefCounted::LiveCount();
    {
        du::SmartPtr<Plain> const object(new Plain);
        EXPECT_EQ(du::RefCounted::LiveCount(), before + 1);
    }
    EXPECT_EQ(du::RefCounted::LiveCount(), before);
}

TEST(RefCounted, ACopyHasACountOfItsOwn) {
    du::SmartPtr<Plain> const original(new Plain);
    original->number = 7;
    du::SmartPtr<Plain> const copy(new Plain(*original));
    EXPECT_EQ(copy->number, 7);
    EXPECT_EQ(copy->GetRefCount(), 1u);
    *copy = *original;
    EXPECT_EQ(copy->GetRefCount(), 1u);
}

TEST(RefCounted, SeveralCountedBasesShareOneCount) {
    du::SmartPtr<Both> const object(new Both);
    du::SmartPtr<Left> const left = object;
    du::SmartPtr<Right> const right = object;
    EXPECT_EQ(object->GetRefCount(), 3u);
    EXPECT_EQ(right->GetRefCount(), 3u);
}

TEST(RefCounted, ATeardownMayHandOutPointersToTheObject) {
    std::string diary;
    du::SmartPtr<HandsItselfOut>(new HandsItselfOut(&diary)).Reset();
    EXPECT_EQ(diary, "torn deleted ");
}

TEST(RefCounted, TryAddRefFailsWhenNobodyHoldsTheObject) {
    Plain unheld;
    EXPECT_FALSE(unheld.TryAddRef());
    unheld.AddRef();
    EXPECT_TRUE(unheld.TryAddRef());
    EXPECT_EQ(unheld.GetRefCount(), 2u);
}

TEST(ConstructionGuard, AnObjectThatNobodyHoldsOutlivesItsConstructor) {
    auto const before = du::RefCounted::LiveCount();
    auto* object = new SelfRegistering(nullptr);
    EXPECT_EQ(object->GetRefCount(), 0u);
    EXPECT_EQ(du::RefCounted::LiveCount(), before + 1);
    du::SmartPtr<SelfRegistering>(object).Reset();
    EXPECT_EQ(du::RefCounted::LiveCount(), before);
}

TEST(ConstructionGuard, AHolderFoundInTheConstructorKeepsTheObject) {
    std::vector<du::SmartPtr<SelfRegistering>> registry;
    auto* object = new SelfRegistering(&registry);
    EXPECT_EQ(object->GetRefCount(), 1u);
    EXPECT_EQ(registry.front(), object);
}

TEST(SmartPtr, ConvertsUpAndToConst) {
    du::SmartPtr<Both> const object(new Both);
    du::ConstSmartPtr<Left> const left = object;
    EXPECT_EQ(left.Get(), static_cast<Left*>(object.Get()));
    EXPECT_EQ(du::ConstSmartPtr<Both>(object), object);
}

TEST(SmartPtr, NullIsANormalValue) {
    du::SmartPtr<Plain> null;
    EXPECT_FALSE(null);
    EXPECT_EQ(null, nullptr);
    EXPECT_FALSE(du::DynamicCast<Both>(null));
    null = nullptr;
    null.Reset();
    EXPECT_EQ(du::SmartPtr<Plain>(null), null);
}

TEST(SmartPtr, SelfAssignmentKeepsTheObject) {
    du::SmartPtr<Plain> object(new Plain);
    auto& same = object;
    object = same;
    EXPECT_EQ(object->GetRefCount(), 1u);
    object = std::move(same);
    EXPECT_EQ(object->GetRefCount(), 1u);
}

TEST(SmartPtr, DynamicCastKeepsConstAndAnswersNullForOtherClasses) {
    du::SmartPtr<du::RefCounted> const object(new Both);
    EXPECT_EQ(du::DynamicCast<Right>(object)->GetRefCount(), 2u);
    EXPECT_FALSE(du::DynamicCast<Plain>(object));
    du::ConstSmartPtr<du::RefCounted> const constant = object;
    static_assert(
        std::is_same_v<decltype(du::DynamicCast<Left>(constant)), du::ConstSmartPtr<Left>>);
    EXPECT_TRUE(du::DynamicCast<Left>(constant));
}

TEST(SmartPtr, AdoptTakesOverAReference) {
    auto* object = new Plain;
    object->AddRef();
    du::SmartPtr<Plain> adopted = du::Adopt(object);
    EXPECT_EQ(object->GetRefCount(), 1u);
    EXPECT_EQ(adopted.Detach(), object);
    EXPECT_EQ(object->GetRefCount(), 1u);
    object->Release();
}

TEST(SmartPtr, ServesAsAKey) {
    du::SmartPtr<Plain> const a(new Plain);
    du::SmartPtr<Plain> const b(new Plain);
    std::map<du::SmartPtr<Plain>, int> const ordered{{a, 1}, {b, 2}};
    EXPECT_EQ(ordered.at(b), 2);
    std::unordered_set<du::SmartPtr<Plain>> const hashed{a, b, a};
    EXPECT_EQ(hashed.size(), 2u);
}

TEST(SmartPtr, IsOnePointerWide) {
    EXPECT_EQ(sizeof(du::SmartPtr<Plain>), sizeof(void*));
}

}  // namespace
