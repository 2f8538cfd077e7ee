#include "family_texts.h"
#include "hang_guard.h"

#include <QFile>
#include <QTemporaryDir>

#include <sys/stat.h>

namespace lineara::test {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

/// A refusal names the file first; then come the place and the reason.
template<class... Parts>
auto says(Parts... parts)
{
    return AllOf(StartsWith("“test.lineara” can't be opened: "), HasSubstr(parts)...);
}

std::string fileRefusal(const QString& path)
{
    const auto family = readFamilyFile(path);
    return family.failed() ? family.failure().message.toStdString() : std::string();
}

} // namespace

TEST(Refusal, NotXml)
{
    EXPECT_THAT(refusal("Dear Ada,\n"), says("line 1", "not an XML file"));
    EXPECT_THAT(refusal(smallFamily().replace("<database>", "<database")), says("line 2", "not well-formed"));
    EXPECT_THAT(refusal(smallFamily().replace("</object>", "</thing>")), says("line 11", "not well-formed"));
}

TEST(Refusal, Empty)
{
    EXPECT_THAT(refusal(""), says("empty"));
    EXPECT_THAT(refusal(" \n\n"), says("not an XML file"));
}

TEST(Refusal, CutOffAnywhere)
{
    const auto text = smallFamily();
    for (qsizetype size = 1; size < text.size() - 1; ++size)
        ASSERT_THAT(refusal(text.first(size)), says("line ")) << "after " << size << " bytes";
}

TEST(Refusal, CutOffIsCalledSo)
{
    const auto text = smallFamily();
    EXPECT_THAT(refusal(text.first(text.size() / 2)), says("cut off"));
}

TEST(Refusal, TextAfterTheEnd)
{
    EXPECT_THAT(refusal(smallFamily() + "more"), says("follows the end"));
}

TEST(Refusal, SecondRoot)
{
    EXPECT_THAT(refusal(smallFamily() + "<database/>"), says("second root"));
}

TEST(Refusal, WrongRoot)
{
    EXPECT_THAT(refusal("<?xml version=\"1.0\"?>\n<svg/>"), says("line 2", "“svg”", "“database”"));
}

TEST(Refusal, MissingInfo)
{
    EXPECT_THAT(refusal("<database/>"), says("“databaseInfo” is missing"));
    EXPECT_THAT(refusal("<database><databaseInfo/></database>"), says("format version"));
}

TEST(Refusal, SecondInfo)
{
    EXPECT_THAT(refusal(fileWith("<databaseInfo/>")), says("line 9", "second “databaseInfo”"));
    EXPECT_THAT(refusal(smallFamily().replace("<UUID>", "<formatVersion>1</formatVersion><UUID>")),
                says("line 5", "“formatVersion” twice"));
}

TEST(Refusal, NewerModelVersionIsNamed)
{
    EXPECT_THAT(refusal(smallFamily().replace(">14<", ">15<")), says("newer", "data model version 15", "14"));
}

TEST(Refusal, OlderModelVersionIsNamed)
{
    EXPECT_THAT(refusal(smallFamily().replace(">14<", ">12<")), says("older", "data model version 12", "14"));
}

TEST(Refusal, NewerFormatVersionIsNamed)
{
    EXPECT_THAT(refusal(smallFamily().replace("Version>1<", "Version>2<")), says("newer", "format version 2"));
}

TEST(Refusal, UnreadableVersion)
{
    EXPECT_THAT(refusal(smallFamily().replace(">14<", ">fourteen<")), says("“fourteen”", "data model version"));
    EXPECT_THAT(refusal(smallFamily().replace(">14<", "><")), says("data model version"));
    EXPECT_THAT(refusal(smallFamily().replace(">14<", ">99999999999<")), says("“99999999999”"));
}

TEST(Refusal, NoUuid)
{
    EXPECT_THAT(refusal(smallFamily().replace("0f9619ff-", "")), says("UUID"));
}

TEST(Refusal, DanglingReference)
{
    EXPECT_THAT(refusal(smallFamily().replace("\"z104 z105\"", "\"z104 z150\"")),
                says("object z102", "“children”", "z150", "not in the file"));
    EXPECT_THAT(refusal(fileWith(pool("z102"))), says("object z101", "“persons”", "z102", "not in the file"));
    EXPECT_THAT(refusal(fileWith(person("z102", inPool("z101")))), says("object z102", "“pool”", "z101"));
    EXPECT_THAT(refusal(fileWith(person("z102", links("pic", "z103", "PIC")))), says("object z102", "“pic”", "z103"));
    EXPECT_THAT(refusal(fileWith(object("PIC", "z103", links("person", "z102")))), says("object z103", "“person”"));
    EXPECT_THAT(refusal(fileWith(person("z102", madeOf("z103")))), says("object z102", "“sourceRecord”", "z103"));
    EXPECT_THAT(refusal(fileWith(pool("", "z102") + source("z103", "", ofPerson("z102")))),
                says("object z103", "“person”", "z102", "another type"));
}

TEST(Refusal, ReferenceToTheWrongKind)
{
    EXPECT_THAT(refusal(fileWith(pool("") + person("z102", links("children", "z101")))),
                says("object z102", "“children”", "z101", "no person"));
    EXPECT_THAT(refusal(fileWith(pool("") + person("z102", links("children", "z101", "POOL")))),
                says("line 13", "object “z102”", "“children”", "“POOL”", "“PERSON”"));
    EXPECT_THAT(refusal(fileWith(person("z102", inPool("z103")) + person("z103"))), says("“pool”", "another type"));
}

TEST(Refusal, ReferenceThatIsNoId)
{
    EXPECT_THAT(refusal(smallFamily().replace("\"z104 z105\"", "\"z104 105\"")), says("object “z102”", "“105”"));
    EXPECT_THAT(refusal(smallFamily().replace("idrefs=\"z103\"", "idrefs=\"z-1\"")), says("“z-1”"));
}

TEST(Refusal, SeveralReferencesWhereOneBelongs)
{
    EXPECT_THAT(refusal(fileWith(pool("", "z101") + pool("", "z103") + person("z102", inPool("z101 z103")))),
                says("object “z102”", "“pool”", "more than one"));
}

TEST(Refusal, DuplicateIds)
{
    EXPECT_THAT(refusal(fileWith(person("z102") + person("z102"))), says("z102", "twice"));
    EXPECT_THAT(refusal(fileWith(pool("", "z102") + person("z102"))), says("z102", "twice"));
    EXPECT_THAT(refusal(fileWith(object("PLACE", "z102", "") + person("z102"))), says("z102", "twice"));
    EXPECT_THAT(refusal(fileWith(person("z102") + person("z900000000000000000") + person("z900000000000000000"))),
                says("z900000000000000000", "twice"));
}

TEST(Refusal, ObjectIdsThatAreNone)
{
    for (const char* id :
         {"", "z", "z0", "z007", "102", "z-5", "z1x", "z1000000000000000000", "z9999999999999999999", "Z102"})
        EXPECT_THAT(refusal(fileWith(person(id))), says("line 9", "no object id")) << id;
}

TEST(Refusal, NoNumberLeftForThePoolThatIsMissing)
{
    EXPECT_THAT(refusal(fileWith(person("z102"), "1000000000000000000")), says("pool", "no number is left"));
}

TEST(Refusal, NumbersOutOfRange)
{
    for (const char* number : {"2147483648", "-2147483649", "99999999999999999999"})
        EXPECT_THAT(refusal(fileWith(person("z102", attribute("birthYear", "int32", number)))),
                    says("line 10", "object “z102”", "“birthYear”", "out of range", number));
}

TEST(Refusal, NumbersThatAreNone)
{
    for (const char* number : {"", " ", "12a", "+5", "1.5", "0x10", "-", " 5", "5<!-- -->", "<b/>"})
        EXPECT_THAT(refusal(fileWith(person("z102", attribute("x", "int32", number)))),
                    says("line 10", "object “z102”", "“x”", "not a whole number"))
            << number;
}

TEST(Refusal, BadBase64)
{
    for (const char* data : {"QUJ*", "Q", "QU", "QUJDQ", "=QUJD", "QU=JD", "QUJD===="})
        EXPECT_THAT(refusal(fileWith(object("PIC", "z102", attribute("data", "binary", data)))),
                    says("line 10", "object “z102”", "“data”", "base64"))
            << data;
}

TEST(Refusal, AttributeOfTheWrongType)
{
    EXPECT_THAT(refusal(fileWith(person("z102", attribute("birthYear", "string", "1815")))),
                says("line 10", "“birthYear”", "“string”", "“int32”"));
    EXPECT_THAT(refusal(fileWith(person("z102", attribute("name", "int32", "1815")))), says("“name”", "“string”"));
    EXPECT_THAT(refusal(fileWith(object("PIC", "z102", attribute("data", "string", "")))), says("“data”", "“binary”"));
}

TEST(Refusal, MembersThatComeTwice)
{
    EXPECT_THAT(refusal(fileWith(person("z102", attribute("x", "int32", "1") + attribute("x", "int32", "2")))),
                says("line 11", "“x”", "twice"));
    EXPECT_THAT(refusal(fileWith(person("z102", links("children", "") + links("children", "")))),
                says("“children”", "twice"));
}

TEST(Refusal, StrayText)
{
    EXPECT_THAT(refusal(fileWith(person("z102", "Ada"))), says("object “z102”", "outside its attributes"));
    EXPECT_THAT(refusal(fileWith(person("z102", attribute("x", "int32", "1") + "Ada"))), says("object “z102”"));
    EXPECT_THAT(refusal(fileWith("Ada")), says("stray text"));
    EXPECT_THAT(refusal(smallFamily().replace("<UUID>", "Ada<UUID>")), says("stray text"));
}

TEST(Refusal, ElementsWithinText)
{
    EXPECT_THAT(refusal(fileWith(person("z102", attribute("name", "string", "A<b>d</b>a")))),
                says("line 10", "“name”", "element"));
}

TEST(Refusal, ReferencesThatMeanNothing)
{
    for (const char* text : {"&nbsp;", "a & b", "&#0;", "&#xD800;", "&#x110000;", "&#;", "&#-1;", "&", "&#12 ;"})
        EXPECT_THAT(refusal(fileWith(person("z102", attribute("name", "string", text)))),
                    says("line 10", "object “z102”", "“name”", "means nothing"))
            << text;
}

TEST(Refusal, DocumentTypeDeclarations)
{
    const auto bomb = QByteArray("<!DOCTYPE database [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;\">]>\n");
    EXPECT_THAT(refusal(smallFamily().replace("<database>", bomb + "<database>")), says("document type"));
}

TEST(Refusal, OtherEncodings)
{
    EXPECT_THAT(refusal(smallFamily().replace("UTF-8", "ISO-8859-1")), says("line 1", "“ISO-8859-1”", "UTF-8"));
    EXPECT_THAT(refusal(smallFamily().replace("Dan", "D\xE4n")), says("line 33", "UTF-8"));
    EXPECT_THAT(refusal(QByteArray("\xFF\xFE<\0", 4)), says("UTF-8"));
    EXPECT_THAT(refusal(smallFamily() + "<!-- \xE4 -->"), says("line 38", "UTF-8"));
}

TEST(Refusal, ZeroBytes)
{
    EXPECT_THAT(refusal(smallFamily().replace("Ben", QByteArray("B\0n", 3))), says("line 20", "zero bytes"));
}

TEST(Refusal, DeepNesting)
{
    QByteArray deep;
    for (int i = 0; i < 200'000; ++i)
        deep += "<a>";
    EXPECT_THAT(refusal(fileWith(deep)), says("line "));
}

TEST(Refusal, PictureOfTwoPersons)
{
    const auto pic = object("PIC", "z104", "");
    const auto withPic = links("pic", "z104", "PIC", "0/1");
    EXPECT_THAT(refusal(fileWith(person("z102", withPic) + person("z103", withPic) + pic)),
                says("z104", "two persons"));
    const auto claiming = object("PIC", "z104", links("person", "z103", "PERSON", "0/1"));
    EXPECT_THAT(refusal(fileWith(person("z102", withPic) + person("z103") + claiming)), says("z104", "two persons"));
}

TEST(Refusal, ImportedRecordOfTwoPersons)
{
    const auto record = source("z104", "0 @I1@ INDI\n");
    EXPECT_THAT(refusal(fileWith(person("z102", madeOf("z104")) + person("z103", madeOf("z104")) + record)),
                says("z104", "imported record", "two persons"));
    const auto claiming = source("z104", "0 @I1@ INDI\n", ofPerson("z103"));
    EXPECT_THAT(refusal(fileWith(person("z102", madeOf("z104")) + person("z103") + claiming)),
                says("z104", "two persons"));
}

TEST(Refusal, ImportedRecordWhoseMembersAreDefective)
{
    EXPECT_THAT(refusal(fileWith(object("SOURCERECORD", "z102", attribute("line", "int32", "twelve")))),
                says("“line”", "“twelve”"));
    EXPECT_THAT(refusal(fileWith(object("SOURCERECORD", "z102", attribute("text", "binary", "QUJD")))),
                says("“text”", "“binary”"));
    EXPECT_THAT(refusal(fileWith(source("z102", "a") + source("z102", "b"))), says("z102", "twice"));
    EXPECT_THAT(refusal(fileWith(source("z102", "a", attribute("text", "string", "b")))), says("“text”", "twice"));
    EXPECT_THAT(refusal(fileWith(source("z102", "a &nothing; b"))), says("“text”", "means nothing"));
    EXPECT_THAT(refusal(fileWith(pool("") + source("z102", "a", ofPerson("z101")))), says("z102", "another type"));
}

TEST(Refusal, MissingFile)
{
    EXPECT_THAT(fileRefusal(u"/nowhere/at all.lineara"_qs),
                AllOf(StartsWith("“/nowhere/at all.lineara” can't be opened: "), HasSubstr("does not exist")));
}

TEST(Refusal, Folder)
{
    const QTemporaryDir folder;
    EXPECT_THAT(fileRefusal(folder.path()), HasSubstr("it is a folder"));
}

TEST(Refusal, PipeThatNobodyWritesTo)
{
    const QTemporaryDir folder;
    const auto path = folder.filePath(u"pipe"_qs);
    ASSERT_EQ(::mkfifo(qPrintable(path), 0600), 0);
    EXPECT_THAT(fileRefusal(path), HasSubstr("not an ordinary file"));
}

TEST(Refusal, EndlessDevice)
{
    EXPECT_THAT(fileRefusal(u"/dev/zero"_qs), HasSubstr("not an ordinary file"));
}

TEST(Refusal, AGigabyteOfNothing)
{
    const QTemporaryDir folder;
    for (const QByteArray& beginning : {QByteArray(), smallFamily()}) {
        QFile file(folder.filePath(u"nothing"_qs));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(beginning);
        ASSERT_TRUE(file.resize(1LL << 30));
        file.close();
        const HangGuard guard;
        EXPECT_THAT(fileRefusal(file.fileName()), HasSubstr("zero bytes"));
    }
}

TEST(Refusal, MoreThanAFamilyFileCanHold)
{
    const QTemporaryDir folder;
    for (const qint64 size : {(2LL << 30) + 1, 1LL << 40}) {
        QFile file(folder.filePath(u"huge"_qs));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_TRUE(file.resize(size));
        file.close();
        const HangGuard guard;
        EXPECT_THAT(fileRefusal(file.fileName()), HasSubstr("more than 2 GB"));
    }
}

TEST(Refusal, MorePartsThanAnyPersonHas)
{
    for (const QByteArray& part : {QByteArray("<a> </a>"), QByteArray("<a b=\"c\"/>"), QByteArray("<a b='c'/>")})
        EXPECT_THAT(refusal(fileWith(person("z102", part.repeated(2'200'000)))), says("from line 2 on", "more parts"));
    EXPECT_THAT(refusal(fileWith(person("z102", "<a" + QByteArray(" b=\"12345\"").repeated(2'200'000) + "/>"))),
                says("more parts"));
}

TEST(Refusal, DocumentThatUnfoldsWithoutEnd)
{
    QByteArray entities = "<!ENTITY a0 \"ha\">";
    for (int i = 1; i < 20; ++i) {
        const auto inner = "&a" + QByteArray::number(i - 1) + ';';
        entities += "<!ENTITY a" + QByteArray::number(i) + " \"" + inner.repeated(10) + "\">";
    }
    const HangGuard guard;
    EXPECT_THAT(refusal("<!DOCTYPE database [" + entities + "]>\n" +
                        fileWith(person("z102", attribute("name", "string", "&a19;")))),
                says("document type"));
    EXPECT_THAT(refusal(fileWith(person("z102", attribute("name", "string", "&a19;")))), says("means nothing"));
}

TEST(Refusal, PathsInPlaceOfIds)
{
    for (const char* id : {"../../etc/passwd", "z1/../..", "z1/../../x", "/z1", "z1\\..", "z1%2F..", "file:z1"}) {
        EXPECT_THAT(refusal(fileWith(person(id))), says("no object id", id));
        EXPECT_THAT(refusal(fileWith(person("z102", links("partners", id)))), says("no object id", id));
        EXPECT_THAT(refusal(fileWith(person("z102", links("pic", id, "PIC", "0/1")))), says("no object id", id));
    }
}

} // namespace lineara::test
