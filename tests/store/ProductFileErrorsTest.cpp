#include "desktop/store/ProductFile.h"

#include <gtest/gtest.h>

#include <fstream>
#include <initializer_list>

namespace desktop::store {

namespace {

/// `text` is what stands behind the first line, which is right.
struct Case {
    const char* text;
    const char* error;
};

std::string ErrorOf(std::string_view json) {
    const ReadResult result = ParseProduct(json);
    const FileError* const error = std::get_if<FileError>(&result);
    return error ? error->reason : "no error";
}

void ExpectErrors(std::initializer_list<Case> cases) {
    for (const Case& wrong : cases)
        EXPECT_EQ(ErrorOf(std::string("{\"format\": \"product-tree 1\",\n") + wrong.text),
                  std::string("line 2, column ") + wrong.error)
            << wrong.text;
}

// clang-format off
TEST(ProductFileErrors, UsesAreCountedOnceAndEndBeforeMemoryDoes) {
    const auto parse = [](const std::string& uses) {
        return ParseProduct(R"({"format": "product-tree 1", "product": {}, "objects": [{"key": "a", "uses": )" +
                            uses + "}]}");
    };
    const auto many = parse("600000");
    const auto* const model = std::get_if<platform::ProductModel>(&many);
    ASSERT_TRUE(model);
    EXPECT_EQ(model->objects[0].occurrences.size(), 600000U);
    const auto tooMany = parse("2000000000");
    const auto* const error = std::get_if<desktop::FileError>(&tooMany);
    ASSERT_TRUE(error);
    EXPECT_NE(error->reason.find("objects[0].uses: more than "), std::string::npos);
}

TEST(WrongMembers, OfTheWrongTypeAreRefused) {
    ExpectErrors({
        {R"("objects": [{"key": "a", "properties": {"mass": "1"}}]})", "49: objects[0].properties.mass: a number is expected"},
        {R"("objects": [{"key": "a", "properties": {"notSected": "maybe"}}]})", "54: objects[0].properties.notSected: a text of the list or its number is expected"},
        {R"("objects": {}})", "12: objects: a list is expected"},
        {R"("objects": ["a"]})", "13: objects[0]: an object is expected"},
        {R"("objects": [{"key": 7}]})", "21: objects[0].key: a text is expected"},
        {R"("objects": [{"key": "a", "name": null}]})", "34: objects[0].name: a text is expected"},
        {R"("objects": [{"key": "a", "separate": 1}]})", "38: objects[0].separate: true or false is expected"},
        {R"("objects": [{"key": "a", "section": 20.5}]})", "37: objects[0].section: a whole number is expected"},
        {R"("objects": [{"key": "a", "section": 1e20}]})", "37: objects[0].section: a whole number of at most 32 bits is expected"},
        {R"("objects": [{"key": "a", "section": "20"}]})", "37: objects[0].section: a whole number is expected"},
        {R"("objects": [{"key": "a", "section": [1, 2, 3, 4, 5, 6, 7]}]})", "37: objects[0].section: at most six numbers are expected"},
        {R"("objects": [{"key": "a", "kind": "bolt"}]})", "34: objects[0].kind: \"unknown\", \"document\", \"feature\", \"view\", \"assembly\", \"detail\", \"standard\", \"other\" or \"service\" is expected"},
        {R"("objects": [{"key": "a", "designation": 5}]})", "41: objects[0].designation: a text or an object is expected"},
        {R"("objects": [{"key": "a", "designation": {"codeDelimiter": "--"}}]})", "59: objects[0].designation.codeDelimiter: one character is expected"},
        {R"("objects": [{"key": "a", "uses": "4"}]})", "34: objects[0].uses: a count or a list is expected"},
        {R"("objects": [{"key": "a", "uses": -1}]})", "34: objects[0].uses: a count is expected"},
        {R"("objects": [{"key": "a", "uses": [{"count": 0}]}]})", "35: objects[0].uses[0].count: a count of 1 or more is expected"},
        {R"("objects": [{"key": "a", "uses": [{"count": 2, "key": "b"}]}]})", "35: objects[0].uses[0].key: uses that are counted have no key of their own"},
        {R"("objects": [{"key": "a", "properties": {"sheetsNumber": 3000000000}}]})", "57: objects[0].properties.sheetsNumber: a whole number of at most 32 bits is expected"},
        {R"("objects": [{"key": "a", "properties": {"comment": {"value": "2024-02-30", "type": "time"}}}]})", "62: objects[0].properties.comment.value: a time is expected, for instance \"2024-05-01T12:00:00Z\""},
        {R"("objects": [{"key": "a", "properties": {"comment": {"format": "x"}}}]})", "52: objects[0].properties.comment.value: a value is needed"},
        {R"("objects": [{"key": "a", "documents": [{}]}]})", "40: objects[0].documents[0].file: a path is needed"},
        {R"("objects": [{"key": "a", "volume": "1"}]})", "36: objects[0].volume: a number is expected"},
        {R"("objects": [{"key": "a", "links": {"comment": "b"}}]})", "47: objects[0].links.comment: an object is expected"},
        {R"("source": {"contents": "1-00000000000000ff"}})", "11: source.file: a path is needed"},
        {R"("source": {"file": "a.stp"}})", "11: source.contents: a size and a hash are expected, as \"1024-00c0ffee00c0ffee\""},
        {R"("source": {"file": "a.stp", "contents": "1-ff"}})", "41: source.contents: a size and a hash are expected, as \"1024-00c0ffee00c0ffee\""},
        {R"("source": {"file": "", "contents": "1-00000000000000ff"}})", "20: source.file: a path is needed"},
        {R"("source": {"file": "a", "contents": "1-00000000000000ff", "deleted": [{"assembly": "a", "object": "b"}]}})", "71: source.deleted[0].use: a key is expected"},
        {R"("objects": [{"key": "a", "source": {"density": "1"}}]})", "48: objects[0].source.density: a number is expected"},
        {R"("product": []})", "12: product: an object is expected"}});
}

TEST(WrongMembers, ThatNobodyKnowsAreRefused) {
    ExpectErrors({
        {R"("objets": []})", "1: objets: there is no such member"},
        {R"("objects": [{"key": "a", "colour": 1}]})", "26: objects[0].colour: there is no such member"},
        {R"("objects": [{"key": "a", "uses": [{"name": "b"}]}]})", "36: objects[0].uses[0].name: there is no such member"},
        {R"("objects": [{"key": "a", "name": "b", "name": "c"}]})", "39: the member 'name' stands here twice"},
        {R"("objects": [{"key": "a", "properties": {"weight": 1}}]})", "41: objects[0].properties.weight: a property's path is expected, or the name of one that stands in \"properties\" once"},
        {R"("properties": [{"property": "user.1000", "name": "a"}, {"property": "user.1001", "name": "a"}], "columns": ["a"]})", "109: columns[0]: a property's path is expected, or the name of one that stands in \"properties\" once"},
        {R"("objects": [{"key": "a", "readOnlyProperties": ["weight"]}]})", "49: objects[0].readOnlyProperties[0]: a property's path is expected, or the name of one that stands in \"properties\" once"},
        {R"("objects": [{"key": "a", "readOnlyProperties": ["mass", "mass"]}]})", "57: objects[0].readOnlyProperties[1]: the property stands here twice"},
        {R"("objects": [{"key": "a", "links": {"comment": {"object": "b"}}}]})", "47: objects[0].links.comment.property: a property is needed"},
        {R"("properties": [{"name": "a"}]})", "16: properties[0].property: a property's path is needed"}});
}

TEST(WrongMembers, ThatTakeAKeyTwiceAreRefused) {
    ExpectErrors({
        {R"("objects": [{"name": "a"}]})", "13: objects[0].key: a key is needed"},
        {R"("objects": [{"key": "a|b"}]})", "21: objects[0].key: a key must not hold '|'"},
        {R"("objects": [{"key": "a"}, {"key": "a"}]})", "35: objects[1].key: the key 'a' is taken already"},
        {R"("objects": [{"key": "product"}]})", "21: objects[0].key: the key 'product' is taken already"},
        {R"("objects": [{"key": "a", "uses": 3}, {"key": "a#2"}]})", "46: objects[1].key: the key 'a#2' is taken already"},
        {R"("objects": [{"key": "a#5"}, {"key": "a", "uses": [{"count": 3}, {"count": 3}]}]})", "65: objects[1].uses[1].key: the key 'a#5' is taken already"},
        {R"("embodiments": [{"key": "e"}, {"key": "e"}]})", "39: embodiments[1].key: the key 'e' is taken already"}});
}

TEST(WrongMembers, ThatNameNothingAreRefused) {
    ExpectErrors({
        {R"("objects": [{"key": "a", "billet": "manual", "billetOwner": "b"}]})", "61: objects[0].billetOwner: there is no object 'b'"},
        {R"("objects": [{"key": "a", "billet": "manual"}]})", "13: objects[0].billetOwner: a billet needs an owner"},
        {R"("objects": [{"key": "a", "billetOwner": "a"}]})", "41: objects[0].billetOwner: only a billet has an owner of that kind"},
        {R"("objects": [{"key": "a", "parents": ["b"]}]})", "38: objects[0].parents[0]: there is no object 'b'"},
        {R"("objects": [{"key": "a", "parents": ["product"]}]})", "38: objects[0].parents[0]: there is no object 'product'"},
        {R"("objects": [{"key": "a", "owners": ["product", "b"]}]})", "48: objects[0].owners[1]: there is no object 'b'"},
        {R"("objects": [{"key": "a", "group": "b"}]})", "35: objects[0].group: there is no part 'b'"},
        {R"("objects": [{"key": "a", "uses": [{}, {"embodiments": ["e"]}]}]})", "56: objects[0].uses[1].embodiments[0]: there is no embodiment 'e'"},
        {R"("currentEmbodiments": ["e"]})", "24: currentEmbodiments[0]: there is no embodiment 'e'"},
        {R"("activeEmbodiment": "e"})", "21: activeEmbodiment: there is no embodiment 'e'"},
        {R"("columns": ["mass", "user.1001"]})", "21: columns[1]: there is no property 1001"},
        {R"("style": {"blocks": [{"number": 1, "sections": [5]}]}})", "49: style.blocks[0].sections[0]: the style has no section 5"}});
}

TEST(WrongMembers, ThatComeBackToTheirStartAreRefused) {
    ExpectErrors({
        {R"("objects": [{"key": "a", "parents": ["a"]}]})", "37: objects[0].parents: the object is part of itself"},
        {R"("objects": [{"key": "a", "owners": ["b"]}, {"key": "b", "owners": ["c"]}, {"key": "c", "owners": ["b"]}]})", "67: objects[1].owners: the object owns itself"},
        {R"("objects": [{"key": "a", "billet": "manual", "billetOwner": "b"}, {"key": "b", "billet": "associative", "billetOwner": "a"}]})", "61: objects[0].billetOwner: the billet belongs to itself"}});
}

TEST(WrongMembers, OutsideTheirRangeAreRefused) {
    ExpectErrors({
        {R"("styleId": 0})", "12: styleId: a number from 1 to 2147483647 is expected"},
        {R"("columnSet": ""})", "14: columnSet: a text is needed"},
        {R"("columns": ["mass", "mass"]})", "21: columns[1]: the column stands here twice"},
        {R"("objects": [{"key": "a", "icon": 27}]})", "34: objects[0].icon: a number from 0 to 26 is expected"},
        {R"("objects": [{"key": "a", "section": -5}]})", "37: objects[0].section: a number from 0 to 2147483647 is expected"},
        {R"("objects": [{"key": "a", "specifications": [1, 0]}]})", "48: objects[0].specifications[1]: a number from 1 to 2147483647 is expected"},
        {R"("objects": [{"key": "a", "lockedDesignationParts": [8]}]})", "52: objects[0].lockedDesignationParts: a number from 1 to 7 is expected"},
        {R"("objects": [{"key": "a", "properties": {"name": "b"}}]})", "49: objects[0].properties.name: name, designation and section are members of the object itself"},
        {R"("objects": [{"key": "a", "properties": {"SPCSection": "b"}}]})", "55: objects[0].properties.SPCSection: name, designation and section are members of the object itself"},
        {R"("properties": [{"property": "user.1000", "name": "Colour"}], "objects": [{"key": "a", "properties": {"user.1000": "b", "Colour": "c"}}]})", "130: objects[0].properties.Colour: the property has a value already"},
        {R"("properties": [{"property": "user.1000", "min": 2, "max": 1}]})", "59: properties[0].max: the range ends before it begins"},
        {R"("properties": [{"property": "mass"}, {"property": "mass"}]})", "51: properties[1].property: the property stands here twice"},
        {R"("product": {"uses": 1}})", "21: product.uses: the product itself has no uses"},
        {R"("product": {"documents": [{"file": "a.pdf"}, {"file": "a.pdf"}]}})", "55: product.documents[1].file: the file stands here twice"},
        {R"("product": {"documents": [{"file": ""}]}})", "36: product.documents[0].file: a path is expected, of 4096 bytes of UTF-8 at most"},
        {R"("objects": [{"key": "a", "documents": [{"file": "a", "isSource": true}, {"file": "b", "isSource": true}]}]})", "99: objects[0].documents[1].isSource: another document is the source already"},
        {R"("style": {"sections": [{"number": 5}, {"number": 5}]}})", "50: style.sections[1].number: another section has the number 5"}});
}

TEST(WrongMembers, ThatAreNoJsonAreRefused) {
    ExpectErrors({
        {R"("product": {})", "14: the text ends too early"},
        {R"("product": {}} {})", "16: text behind the end of the product"},
        {R"("product": {},})", "15: not JSON: unexpected '}'; expected string literal"},
        {R"("product": nul})", "15: not JSON: invalid literal"},
        {R"("product": 'a'})", "12: not JSON: invalid literal"},
        {R"("styleId": 01})", "13: not JSON: unexpected number literal; expected '}'"},
        {R"("styleId": 1e999})", "12: the number is too large"},
        {"\"columnSet\": \"a\tb\"}", "16: not JSON: invalid string: control character U+0009 (HT) must be escaped to \\u0009 or \\t"},
        {"\"columnSet\": \"\xC3\xA4\xFF\"}", "16: not JSON: invalid string: ill-formed UTF-8 byte"},
        {R"("columnSet": "\uD800"})", "21: not JSON: invalid string: surrogate U+D800..U+DBFF must be followed by U+DC00..U+DFFF"},
        {R"("columnSet": "\uDC00"})", "20: not JSON: invalid string: surrogate U+DC00..U+DFFF must follow U+D800..U+DBFF"}});
}
// clang-format on

struct Text {
    const char* text;
    const char* error;
};

TEST(WrongTexts, AreRefusedWithTheirPlace) {
    const Text texts[] = {
        {"", "line 1, column 1: the file is empty"},
        {" \n\n", "line 1, column 1: the file is empty"},
        {"\xEF\xBB\xBF", "line 1, column 1: the file is empty"},
        {"[]", "line 1, column 1: an object is expected"},
        {"{}", "line 1, column 1: format: \"product-tree 1\" is expected"},
        {"\n {\"format\":\n  \"product-tree 2\"}", "line 3, column 3: format: \"product-tree 1\" is expected"},
        {"\xEF\xBB\xBF{\"format\": 1}", "line 1, column 12: format: \"product-tree 1\" is expected"},
        {"ISO-10303-21;", "line 1, column 1: not JSON: invalid literal"},
    };
    for (const Text& text : texts)
        EXPECT_EQ(ErrorOf(text.text), text.error) << text.text;
}

TEST(WrongTexts, WithAKeyThatBreaksTheLineAreStillReportedInOneLine) {
    const std::string error =
        ErrorOf(R"({"format": "product-tree 1", "objects": [{"key": "a", "parents": ["b\n\u0000c"]}]})");
    EXPECT_EQ(error, "line 1, column 67: objects[0].parents[0]: there is no object 'b  c'");
    const std::string longKey(100'000, 'x');
    EXPECT_LT(ErrorOf("{\"format\": \"product-tree 1\", \"" + longKey + "\": 1}").size(), 400U);
}

TEST(DeepNesting, IsRefusedAtTheSixtyFifthLevel) {
    EXPECT_EQ(ErrorOf(std::string(64, '[') + std::string(64, ']')), "line 1, column 1: an object is expected");
    EXPECT_EQ(ErrorOf(std::string(200, '[') + std::string(200, ']')),
              "line 1, column 65: nested deeper than 64 levels");
}

TEST(DeepNesting, OfAHugeFileIsRefusedWithoutReadingOn) {
    const std::filesystem::path path = std::filesystem::path(testing::TempDir()) / "product-tree-brackets.json";
    {
        std::ofstream file(path, std::ios::binary);
        const std::string piece(1 << 20, '[');
        for (int i = 0; i < 200; ++i)
            file << piece;
    }
    const ReadResult result = ReadProductFile(path);
    std::filesystem::remove(path);
    ASSERT_TRUE(std::holds_alternative<FileError>(result));
    EXPECT_EQ(std::get<FileError>(result).reason, "line 1, column 65: nested deeper than 64 levels");
}

TEST(UnreadableFiles, AreReportedInTheSystemsWords) {
    const auto errorOf = [](const std::filesystem::path& path) {
        const ReadResult result = ReadProductFile(path);
        const FileError* const error = std::get_if<FileError>(&result);
        return error ? error->reason : "no error";
    };
    EXPECT_EQ(errorOf(testing::TempDir()), "Is a directory");
    EXPECT_EQ(errorOf(testing::TempDir() + "/no/such/file.json"), "No such file or directory");
    EXPECT_EQ(errorOf("/dev/null"), "line 1, column 1: the file is empty");
}

} // namespace

} // namespace desktop::store
