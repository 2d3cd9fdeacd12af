#include "desktop/import/StepText.h"

#include <gtest/gtest.h>

namespace {

using desktop::FileError;
using desktop::step::PreparedText;
using desktop::step::PrepareForReader;
using desktop::step::RestoreString;

std::string Prepared(std::string_view file) {
    const auto result = PrepareForReader(file);
    const auto* error = std::get_if<FileError>(&result);
    return error ? "error: " + error->reason : std::get<PreparedText>(result).text;
}

/// What the reader would hand back for the one string in a file with that literal.
std::string ThroughReader(const std::string& literal) {
    const std::string text = Prepared("ISO-10303-21;A('" + literal + "');END-ISO-10303-21;");
    const std::size_t begin = text.find('\'') + 1;
    const std::string inner = text.substr(begin, text.rfind('\'') - begin);
    EXPECT_EQ(inner.find_first_of("'\\\r\n"), std::string::npos) << inner;
    return RestoreString(inner);
}

TEST(StepText, PassesStringsThroughTheReaderUntouched) {
    for (const std::string literal : {"plain", "", "O''Neil, a'',b", R"(\X2\0041\X0\\\)", "~ ~41 ~~", "\x80\xFF\x01\t"})
        EXPECT_EQ(ThroughReader(literal), literal);
}

TEST(StepText, JoinsStringsThatAreBrokenOverLines) {
    EXPECT_EQ(ThroughReader("\\X2\\30\r\nB9\\\n\rX0\\ e\nnd"), "\\X2\\30B9\\X0\\ end");
}

TEST(StepText, LeavesStatementsOnTheirLines) {
    EXPECT_EQ(Prepared("\n/* by\nhand */\nISO-10303-21;\nA('x\ny',1);/* ' \n */B();\n"
                       "END-ISO-10303-21;\nrest"),
              " \n\n\nISO-10303-21;\nA('xy'\n,1); \nB();\nEND-ISO-10303-21;");
}

TEST(StepText, TellsWhereAFileIsNotWhole) {
    const struct {
        const char* file;
        const char* reason;
    } cases[] = {
        {"ISO-10303-21;\nA();\n", "line 3: the file is cut off here"},
        {"ISO-10303-21;\nA(\n'x", "line 3: a text begins here and does not end"},
        {"ISO-10303-21;\n/* A(", "line 2: a comment begins here and does not end"},
        {"ISO-10303-21;\nA();\nEND-ISO-1030", "line 3: the file is cut off here"},
        {"", "line 1: the file is cut off here"},
    };
    for (const auto& broken : cases)
        EXPECT_EQ(Prepared(broken.file), std::string("error: ") + broken.reason);
}

TEST(StepText, ChecksTheSyntaxOfEachStatement) {
    const struct {
        const char* statement;
        const char* reason;
    } cases[] = {
        {"#1=A();", nullptr},
        {"#12 = A_B( 'x' ,#3,$,*,.T.,-1.5E-3,\"0FF\",(),((1,2),B(.U.)));", nullptr},
        {"#1=( A() B(1) C('x') );", nullptr},
        {"#1=!OWN('x');", nullptr},
        {"#1=A(#18446744073709551615);", nullptr},
        {"#1=A(1;", "a bracket that is not closed"},
        {"#1=A(1));", "an unexpected character"},
        {"#1=A(1 2);", "an unexpected character"},
        {"#1=A(,1);", "an unexpected character"},
        {"#1=A(1,);", "an unexpected character"},
        {"#1=A(B);", "an unexpected character"},
        {"#1=A(\xE9);", "an unexpected character"},
        {"#1=A('x'.T);", "an unexpected character"},
        {"#1=A(.T);", "a value that does not end"},
        {"#1=A(\"0G\");", "a value that does not end"},
        {"#1=A(#);", "a record number that is none"},
        {"#1#2=A();", "a record without an equals sign"},
        {"#1=&SCOPE A();", "a record without a type"},
        {"#1=();", "a record without a type"},
        {"#1=#2;", "a record without a type"},
        {"=A();", "an unexpected character"},
    };
    for (const auto& known : cases) {
        const std::string text = Prepared("ISO-10303-21;\n" + std::string(known.statement) + "END-ISO-10303-21;");
        const std::string error = known.reason ? std::string("error: line 2: ") + known.reason : "";
        EXPECT_EQ(text.starts_with("error") ? text : "", error) << known.statement;
    }
    const std::string deep = std::string(500'000, '(') + std::string(500'000, ')');
    EXPECT_EQ(Prepared("ISO-10303-21;#1=A" + deep + ";"), "error: line 1: brackets nest too deeply");
}

TEST(StepText, LeavesOutTheSectionsThatNewerEditionsHave) {
    const auto result = PrepareForReader("ISO-10303-21;\nHEADER;\nA();\nENDSEC;\nANCHOR;\n<a>=#1;\nENDSEC;\n"
                                         "REFERENCE;\n#7=<b.stp#x>;\n#8=<b.stp#y>;\n#9=<c/d.stp#z>;\nENDSEC;\n"
                                         "DATA('one',('X'));\n#1=B();\nENDSEC;\nDATA('two',('X'));\n#2=C();\n"
                                         "ENDSEC;\nEND-ISO-10303-21;\nSIGNATURE;\n<>ENDSEC;");
    const auto& prepared = std::get<PreparedText>(result);
    EXPECT_EQ(prepared.text, " ISO-10303-21;\nHEADER;\nA();\nENDSEC;\n\n\n\n\n\n\n\n\nDATA;\n"
                             "#1=B();\n\n\n#2=C();\nENDSEC;\nEND-ISO-10303-21;");
    EXPECT_EQ(prepared.otherFiles, (std::set<std::string>{"b.stp", "c/d.stp"}));
}

} // namespace
