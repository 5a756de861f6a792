#include "records/codec.hpp"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "catalogue/parameters.hpp"

namespace records {

struct Leaf {
  char name[8];
  char key[8];
  int8_t level;
};

struct Tree {
  char text[8];
  int32_t number;
  uint32_t count;
  uint64_t total;
  uint16_t ports[3];
  char names[2][8];
  Leaf leaves[];
};

}  // namespace records

PM_RECORD(records::Leaf, PM_FIELD(name).optional(), PM_FIELD(key).optional().secret(),
          PM_FIELD(level).optional());
PM_RECORD(records::Tree, PM_FIELD(text).optional(), PM_FIELD(number).optional(), PM_FIELD(count),
          PM_FIELD(total).optional(), PM_FIELD(ports).optional(), PM_FIELD(names).optional(),
          PM_COUNTED(leaves, count).capacity(2).optional());

namespace records {

namespace {

class TreeCodec : public testing::Test {
 protected:
  void fill(const char *json) {
    fromJson(Json::parse(json), "tree", kShape<Tree>, tree_, Needed::kAll, &secrets_);
  }
  std::string refusal(const char *json) {
    try {
      fill(json);
    } catch (const InputError &error) {
      return error.what();
    }
    return "accepted";
  }
  Json print(bool showSecrets = true) {
    return toJson(kShape<Tree>, tree_, {.showsSecrets = showSecrets, .escapesBytes = true});
  }

  catalogue::Buffer buffer_{kShape<Tree>.allocation()};
  Tree *tree_ = buffer_.as<Tree *>();
  Secrets secrets_;
};

TEST_F(TreeCodec, RecordFromJsonFillsEveryKindOfMember) {
  fill(R"({"text":"abcdefg","number":-2147483648,"total":18446744073709551615,"ports":[1,65535],
           "names":["x","yz"],"leaves":[{"name":"a","level":-128},{"key":"hush"}]})");

  EXPECT_STREQ(tree_->text, "abcdefg");
  EXPECT_EQ(tree_->number, INT32_MIN);
  EXPECT_EQ(tree_->total, UINT64_MAX);
  EXPECT_EQ(tree_->ports[1], 65535);
  EXPECT_EQ(tree_->ports[2], 0);
  EXPECT_STREQ(tree_->names[1], "yz");
  EXPECT_EQ(tree_->leaves[0].level, -128);
  EXPECT_STREQ(tree_->leaves[1].key, "hush");
  EXPECT_EQ(tree_->count, 2u) << "follows from the leaves given";
  EXPECT_EQ(secrets_, Secrets{"hush"});
}

TEST_F(TreeCodec, RecordFromJsonKeepsACountThatWasGiven) {
  fill(R"({"leaves":[{"name":"a"}],"count":7})");
  EXPECT_EQ(tree_->count, 7u);
}

TEST_F(TreeCodec, RecordFromJsonRefusesWithPlaceAndReason) {
  const struct {
    const char *json;
    const char *line;
  } kCases[] = {
      {"[]", "tree: expected an object, got an array"},
      {R"({"colour":1})", "tree.colour: no such member in Tree"},
      {R"({"text":1})", "tree.text: expected a text, got a number"},
      {R"({"text":"abcdefgh"})", "tree.text: a text of 8 bytes does not fit 7"},
      {R"({"text":"a\u0000b"})", "tree.text: the text holds a zero"},
      {R"({"number":"1"})", "tree.number: expected a whole number, got a text"},
      {R"({"number":1.5})", "tree.number: expected a whole number, got a fraction"},
      {R"({"number":null})", "tree.number: expected a whole number, got null"},
      {R"({"number":2147483648})", "tree.number: 2147483648 is outside -2147483648 to 2147483647"},
      {R"({"number":18446744073709551615})",
       "tree.number: 18446744073709551615 is outside -2147483648 to 2147483647"},
      {R"({"count":-1})", "tree.count: -1 is outside 0 to 4294967295"},
      {R"({"ports":[1,65536]})", "tree.ports[1]: 65536 is outside 0 to 65535"},
      {R"({"ports":[1,2,3,4]})", "tree.ports: 4 elements do not fit 3"},
      {R"({"ports":1})", "tree.ports: expected an array, got a number"},
      {R"({"leaves":[{},{"level":128}]})", "tree.leaves[1].level: 128 is outside -128 to 127"},
      {R"({"leaves":[true]})", "tree.leaves[0]: expected an object, got a truth value"},
  };
  for (const auto &test : kCases) EXPECT_EQ(refusal(test.json), test.line) << test.json;
}

TEST_F(TreeCodec, RecordToJsonStopsAtTheEndOfATextThatFillsItsField) {
  std::memcpy(tree_->text, "12345678", 8);
  tree_->number = 0x39393939;
  EXPECT_EQ(print()["text"], "12345678");
}

TEST_F(TreeCodec, RecordToJsonEscapesBytesThatAreNoUtf8) {
  std::memcpy(tree_->text, "a\xff\xc3\xa4\xc3", 5);
  EXPECT_EQ(print()["text"], "a\\xff\xc3\xa4\\xc3");
  EXPECT_NO_THROW(print().dump());
  for (const char *bytes : {"\xc0\x80", "\xed\xa0\x80", "\xf5\x80\x80\x80", "\xe0\x80\x80"}) {
    EXPECT_NO_THROW(Json(printable(bytes)).dump()) << printable(bytes);
  }
}

TEST_F(TreeCodec, RecordToJsonPrintsOnlyCountedElements) {
  std::strcpy(tree_->leaves[0].name, "a");
  const struct {
    uint32_t count;
    size_t printed;
  } kCases[] = {{0, 0}, {1, 1}, {2, 2}, {3, 2}, {UINT32_MAX, 0}};
  for (const auto &test : kCases) {
    tree_->count = test.count;
    EXPECT_EQ(print()["leaves"].size(), test.printed) << test.count;
  }
}

TEST_F(TreeCodec, RecordToJsonMasksSecretsUnlessAsked) {
  fill(R"({"leaves":[{"key":"hush"},{}]})");
  EXPECT_EQ(print(false)["leaves"][0]["key"], "***");
  EXPECT_EQ(print(false)["leaves"][1]["key"], "") << "an empty one hides nothing";
  EXPECT_EQ(print(true)["leaves"][0]["key"], "hush");
}

}  // namespace
}  // namespace records
