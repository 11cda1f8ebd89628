// The catalogue of texts against the dictionary of its document and the keys in the sources.
#include <vek/data/config.h>
#include <vek/data/iterator.h>
#include <vek/data/text.h>
#include <vek/dialogframe/message.h>
#include <vek/json.h>
#include <vek/objects/outline.h>

#include "core/platform/platform.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <regex>

namespace
{

using Texts = std::map<std::string, std::string>;

const std::filesystem::path kRoot = VEK_SOURCE_DIR;

std::string read(const std::filesystem::path& path)
{
    std::string bytes;
    EXPECT_TRUE(VEK::platform::readFile(path, bytes)) << path;
    return bytes;
}

std::string utf8(const wchar_t* text)
{
    return VEK::platform::utf8Of(text);
}

std::map<std::string, Texts> catalogue()
{
    std::map<std::string, Texts> all;
    CVekDataItem file;
    CVekString error;
    EXPECT_TRUE(VEK::jsonLoad(file, (kRoot / "examples/texts.json").wstring().c_str(), error)) << utf8(error);
    for (VEK::CDataIterator language(file.getItem(L"*MSG*\\VEK_")); !language.done(); language.next()) {
        for (VEK::CDataIterator it(language.item()); !it.done(); it.next()) {
            CVekString text;
            EXPECT_TRUE(it->get(text));
            all[utf8(*language->getKey())][utf8(*it->getKey())] = utf8(text);
        }
    }
    return all;
}

/// Everything that a regular expression with one group matches.
std::vector<std::smatch> matches(const std::string& text, const char* form)
{
    const std::regex expression(form);
    return {std::sregex_iterator(text.begin(), text.end(), expression), std::sregex_iterator()};
}

TEST(Catalogue, HasTheDictionaryInAllLanguages)
{
    Texts dictionary;
    const std::string document = read(kRoot / "docs/texts.md");
    for (const std::smatch& row : matches(document, "\n\\| `((?:VEK|DLG)\\w+)` \\| ([^|]+) \\|"))
        EXPECT_TRUE(dictionary.emplace(row[1], row[2]).second) << row[1] << " stands twice";
    EXPECT_EQ(dictionary["VEK_MFC_0017"], "Mehzeilige Texte nicht möglich");
    EXPECT_EQ(dictionary["VEK_OUTL_0101"], "*Grundformen");

    const std::map<std::string, Texts> all = catalogue();
    ASSERT_EQ(all.size(), 5u);
    EXPECT_EQ(all.at("de"), dictionary);
    for (const auto& [language, texts] : all) {
        EXPECT_EQ(texts.size(), dictionary.size()) << language;
        for (const auto& [key, text] : texts) {
            SCOPED_TRACE(language + " " + key);
            EXPECT_TRUE(dictionary.contains(key) && !text.empty() && text.front() != ' ' && text.back() != ' ');
            EXPECT_EQ(text.front() == '*', key == "VEK_OUTL_0101");
            EXPECT_FALSE(text.ends_with(".")) << "what stands behind it is decoration";
        }
    }
}

TEST(Catalogue, HasEveryKeyOfTheSources)
{
    const Texts german = catalogue().at("de");
    int files = 0, labels = 0;
    for (const char* folder : {"src", "include", "apps", "examples"}) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(kRoot / folder)) {
            if (entry.path().extension() != ".cpp" && entry.path().extension() != ".h")
                continue;
            ++files;
            const std::string text = read(entry.path());
            for (const std::smatch& key :
                 matches(text, "\"(?:\\\\\\\\)?(VEK_[A-Z]+_[0-9]{3,4}|DLG_[A-Z0-9]+|VEK[0-9]{3})[\"\\\\]"))
                EXPECT_TRUE(german.contains(key[1])) << key[1] << " of " << entry.path();
        }
    }
    EXPECT_GT(files, 200);
    for (int number = 1000; number < 4000; ++number) { // outlines and their parameters
        const std::wstring key = L"VEK_OUTL_" + std::to_wstring(number);
        const auto text = german.find(utf8(key.c_str()));
        EXPECT_EQ(utf8(VEK::outlineText(key.c_str())), text == german.end() ? "" : text->second) << number;
        labels += text != german.end();
    }
    EXPECT_EQ(labels, 85);
}

TEST(Catalogue, IsAddedToTheConfiguration)
{
    VEK::CCfgBackup backup(true);
    backup.attach(L"*MSG*");
    const auto text = [](const wchar_t* key, const wchar_t* language) {
        return vek_msg_get(L"VEK_", key, L"?", language);
    };
    const auto load = [](const std::string& bytes, CVekString& error) {
        const std::filesystem::path file = std::filesystem::temp_directory_path() / "vek_texts_test.json";
        std::ofstream(file, std::ios::binary) << bytes;
        const bool good = VEK::textsLoad(file.wstring().c_str(), error);
        std::filesystem::remove(file);
        return good;
    };
    CVekString error;
    ASSERT_TRUE(
        load(R"({"*MSG*": {"VEK_": {"fr": {"OWN": "à moi", "VEK001": "autre"}}, "N": {"a": 1}}, "X": "y"})", error));
    ASSERT_TRUE(VEK::textsLoad((kRoot / "examples/texts.json").wstring().c_str(), error));
    EXPECT_STREQ(text(L"OWN", L"FR"), L"à moi");
    EXPECT_STREQ(text(L"VEK001", L"fr"), L"Erreur") << "the later file counts";
    EXPECT_STREQ(text(L"VEK_OUTL_1031", L"pl"), L"Płatew Z");
    EXPECT_STREQ(VEK::msgCallBack(L"\\VEK_OUTL_0004\\...", L"Filter", L"cs"), L"Filtr...");
    EXPECT_STREQ(text(L"VEK001", L"it"), L"?");
    EXPECT_EQ(VEK::cfg_get(L"*MSG*\\N\\a"), nullptr);
    EXPECT_EQ(VEK::cfg_get(L"X"), nullptr);
    EXPECT_TRUE(error.isNull());

    for (const char* bad : {"{}", R"({"*MSG*": "x"})", R"({"*MSG*": {"VEK_": {"de": {"K": 1}}}})", "{"}) {
        error = L"";
        EXPECT_FALSE(load(bad, error)) << bad;
        EXPECT_GE(error.find(L"vek_texts_test.json:"), 0) << bad;
    }
    EXPECT_FALSE(VEK::textsLoad(L"no such file.json", error));
    EXPECT_STREQ(text(L"OWN", L"fr"), L"à moi");
}

} // namespace
