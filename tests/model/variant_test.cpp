#include "model/test_support.hpp"

using namespace quilta;

namespace {

TEST(VariantStorage, SixteenBytesAndTypeCodes) {
  static_assert(sizeof(Variant) == 16);
  EXPECT_EQ(Variant().Type(), vbEmpty);
  EXPECT_EQ(Variant(true).Type(), vbBoolean);
  EXPECT_EQ(Variant(int16_t{1}).Type(), vbInteger);
  EXPECT_EQ(Variant(1).Type(), vbLong);
  EXPECT_EQ(Variant(int64_t{1}).Type(), vbLongLong);
  EXPECT_EQ(Variant(uint8_t{1}).Type(), vbByte);
  EXPECT_EQ(Variant(1.0f).Type(), vbSingle);
  EXPECT_EQ(Variant(1.0).Type(), vbDouble);
  EXPECT_EQ(Variant("a").Type(), vbString);
  EXPECT_EQ(Variant(std::string_view("a")).Type(), vbString);
  EXPECT_EQ(Variant::Date(1).Type(), vbDate);
  EXPECT_EQ(Variant::Currency(1.25).Type(), vbCurrency);
  EXPECT_EQ(Variant::Currency(1.25).CurrencyScaled(), 12500);
  EXPECT_EQ(Variant::Null().Type(), vbNull);
  EXPECT_EQ(Variant::Array1D(0, 2).Type(), vbArray | vbVariant);
}

TEST(VariantStorage, MissingIsAnErrorValueDistinctFromEmpty) {
  Variant missing = Variant::Missing();
  EXPECT_TRUE(missing.IsMissing());
  EXPECT_FALSE(missing.IsEmpty());
  EXPECT_EQ(missing.Type(), vbError);
  EXPECT_FALSE(Variant().IsMissing());
}

TEST(VariantStorage, CopiesShareTheirText) {
  Variant a(std::string(100, 'x'));
  Variant b = a;
  EXPECT_EQ(a.StringView().data(), b.StringView().data());
  Variant c = std::move(b);
  EXPECT_TRUE(b.IsEmpty());
  EXPECT_EQ(c.StringView().data(), a.StringView().data());
  a = Variant(3);
  EXPECT_EQ(c.StringView(), std::string(100, 'x'));
}

TEST(VariantStorage, EqualityIsIdentityOfTypeAndValue) {
  EXPECT_EQ(Variant(5), Variant(5));
  EXPECT_NE(Variant(5), Variant(5.0));
  EXPECT_NE(Variant(5), Variant(int16_t{5}));
  EXPECT_EQ(Variant("ab"), Variant(std::string("ab")));
  EXPECT_NE(Variant("ab"), Variant("AB"));
  EXPECT_NE(Variant::Date(2), Variant(2.0));
  EXPECT_EQ(Variant::Null(), Variant::Null());
}

TEST(VariantStorage, ObjectsAreSharedReferences) {
  auto obj = std::make_shared<std::vector<int>>(3, 7);
  Variant v = Variant::Object(obj);
  Variant copy = v;
  EXPECT_EQ(copy.ObjectAs<std::vector<int>>(), obj);
  EXPECT_EQ(copy.ObjectAs<std::string>(), nullptr);  // asked as the wrong type
  EXPECT_EQ(v, copy);
  EXPECT_TRUE(Variant::Object(std::shared_ptr<int>()).IsObject());
}

TEST(VariantStorage, ArraysHaveBoundsAndCopyOnWrite) {
  Variant a = Variant::Array2D(1, 2, 0, 3);
  EXPECT_EQ(a.Dims(), 2);
  EXPECT_EQ(a.LBound(1), 1);
  EXPECT_EQ(a.UBound(1), 2);
  EXPECT_EQ(a.UBound(2), 2);
  a.SetAt(2, 1, "x");
  Variant b = a;
  b.SetAt(2, 1, "y");
  EXPECT_EQ(a.At(2, 1), Variant("x"));
  EXPECT_EQ(b.At(2, 1), Variant("y"));
  EXPECT_THROW(a.At(3, 0), Error);
  EXPECT_THROW(a.At(1), Error);
}

}  // namespace
