#include <maya/MString.h>
#include <maya/MTypeId.h>
#include <maya/MUuid.h>

#include <gtest/gtest.h>

#include <set>
#include <string>

TEST(TypeId, HoldsTheIdAndBuildsPrefixedIds)
{
    EXPECT_EQ(MTypeId(0x1417C0).id(), 1316800u);
    EXPECT_EQ(MTypeId(0x1417, 0xC1), MTypeId(1316801));
    EXPECT_NE(MTypeId(1316801), MTypeId(1316802));
    EXPECT_EQ(MTypeId().id(), 0u);
}

namespace {

// Upper-case 8-4-4-4-12 hex with the version 4 and RFC 4122 variant digits.
bool version4Text(const std::string& text)
{
    if (text.size() != 36 || text[14] != '4' || std::string("89AB").find(text[19]) == std::string::npos)
        return false;
    for (size_t i = 0; i < text.size(); ++i)
    {
        const bool dash = i == 8 || i == 13 || i == 18 || i == 23;
        if (dash != (text[i] == '-') || (!dash && std::string("0123456789ABCDEF").find(text[i]) == std::string::npos))
            return false;
    }
    return true;
}

} // namespace

TEST(Uuid, GeneratesDistinctVersion4Uuids)
{
    std::set<std::string> seen;
    for (int i = 0; i < 100; ++i)
    {
        MUuid id;
        EXPECT_FALSE(id.valid());
        ASSERT_EQ(id.generate(), MS::kSuccess);
        EXPECT_TRUE(id.valid());
        const std::string text = id.asString().asChar();
        EXPECT_TRUE(version4Text(text)) << text;
        seen.insert(text);
    }
    EXPECT_EQ(seen.size(), 100u);
}

TEST(Uuid, ReadsItsTextBack)
{
    MUuid id;
    id.generate();
    MStatus status;
    const MUuid back(id.asString(), &status);
    EXPECT_EQ(status, MS::kSuccess);
    EXPECT_EQ(back, id);
    EXPECT_EQ(MString(back), id.asString());

    const MUuid lower(MString("0d2a5bc8-4b9e-2f6b-f3a4-0fb0f2e8f0a1"), &status);
    EXPECT_EQ(status, MS::kSuccess);
    EXPECT_EQ(lower.asString(), MString("0D2A5BC8-4B9E-2F6B-F3A4-0FB0F2E8F0A1"));
    unsigned char bytes[16];
    lower.get(bytes);
    EXPECT_EQ(bytes[0], 0x0D);
    EXPECT_EQ(bytes[15], 0xA1);
    EXPECT_EQ(MUuid(bytes), lower);
    const unsigned int words[4] = {0x0D2A5BC8u, 0x4B9E2F6Bu, 0xF3A40FB0u, 0xF2E8F0A1u};
    EXPECT_EQ(MUuid(words), lower);
}

TEST(Uuid, RejectsMalformedText)
{
    for (const char* text : {"", "0D2A5BC8-4B9E-2F6B-F3A4-0FB0F2E8F0A", "0D2A5BC8-4B9E-2F6B-F3A4-0FB0F2E8F0A1X",
                             "0D2A5BC84B9E-2F6B-F3A4-0FB0F2E8F0A1-", "0D2A5BC8-4B9E-2F6B-F3A4-0FB0F2E8F0G1"})
    {
        MStatus status;
        const MUuid id{MString(text), &status};
        EXPECT_EQ(status, MS::kInvalidParameter) << text;
        EXPECT_FALSE(id.valid()) << text;
    }
}
