// Measures the key pictures and cards as built: all are there, and a child can read them and tell them apart.

#include <gtest/gtest.h>

#include <QColor>
#include <QImage>
#include <QRect>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <string_view>

#include "failure.h"
#include "pictures/drawings.h"
#include "platform/qt/pictures.h"
#include "tables/picture_list.h"

namespace {

// In design pixels; the last is the flat part of a key cap.
constexpr QSize kKey{44, 40}, kCard{119, 113};
constexpr QRect kTop{3, 3, 38, 31};

bool is_card(const std::string& file) { return file.find("/Flash/") != std::string::npos; }
std::string folder_of(const std::filesystem::path& file) { return file.parent_path().generic_string(); }
std::string base_of(const std::filesystem::path& file) { return file.stem().string(); }

const std::map<std::string, QImage>& pictures() {
    static const std::map<std::string, QImage> kPictures = [] {
        std::map<std::string, QImage> read;
        for (const marrowfen::ListedPicture& picture : marrowfen::read_picture_list(MARROWFEN_PICTURE_LIST)) {
            read[picture.file] = marrowfen::read_bitmap(MARROWFEN_KEY_PICTURES "/" + picture.file)
                                     .convertToFormat(QImage::Format_ARGB32);
        }
        return read;
    }();
    return kPictures;
}

double luminance(QRgb colour) {
    const auto linear = [](int value) { return std::pow(value / 255.0, 2.2); };
    return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) + 0.0722 * linear(qBlue(colour));
}

QImage top_of(const QImage& key) {
    const int scale = key.width() / kKey.width();
    return key.copy(QRect(kTop.topLeft() * scale, kTop.size() * scale));
}

/// The share of the pixels that are plainly apart, of pictures with 32 bits a pixel; every third row tells enough.
double difference(const QImage& one, const QImage& other) {
    if (one.size() != other.size()) return 1;
    const auto row = [](const QImage& image, int y) { return reinterpret_cast<const QRgb*>(image.constScanLine(y)); };
    const auto apart = [](QRgb a, QRgb b) {
        return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b)),
                         std::abs(qAlpha(a) - qAlpha(b))}) > 20;
    };
    double sum = 0;
    for (int y = 0; y < one.height(); y += 3) {
        for (int x = 0; x < one.width(); ++x) sum += apart(row(one, y)[x], row(other, y)[x]) ? 1 : 0;
    }
    return 3 * sum / (one.width() * one.height());
}

/// What is written on a key, in pixels within the cap's top: all that has a contrast of 7 to 1 with the cap.
QRect ink_of(const QImage& top) {
    const double light = luminance(top.pixel(2, top.height() * 4 / 5));
    QRect ink;
    for (int y = 0; y < top.height(); ++y) {
        for (int x = 0; x < top.width(); ++x) {
            const int to_corner = std::min(x, top.width() - 1 - x) + std::min(y, top.height() - 1 - y);
            if (to_corner < top.width() / 8) continue;  // the cap is round there, and this is its outline
            if (light + 0.05 >= 7 * (luminance(top.pixel(x, y)) + 0.05)) ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

}  // namespace

TEST(Pictures, AllThatTheGamesAskForAreThereInTheDesignsSizeAndWithoutAFrame) {
    ASSERT_FALSE(pictures().empty());
    for (const auto& [file, picture] : pictures()) {
        SCOPED_TRACE(file);
        ASSERT_FALSE(picture.isNull());
        const QSize design = is_card(file) ? kCard : kKey;
        EXPECT_NEAR(picture.width() / (picture.dotsPerMeterX() * 0.0254) * 96, design.width(), 0.01);
        EXPECT_NEAR(picture.height() / (picture.dotsPerMeterY() * 0.0254) * 96, design.height(), 0.01);
        EXPECT_GE(picture.width(), 2 * design.width()) << "a large screen shows it blurred";
        const QRect all = picture.rect();
        for (const QPoint corner : {all.topLeft(), all.topRight(), all.bottomLeft(), all.bottomRight()}) {
            EXPECT_EQ(qAlpha(picture.pixel(corner)), 0);
        }
        EXPECT_TRUE(is_card(file) || qAlpha(picture.pixel(all.center())) == 255);
    }
}

TEST(Pictures, EachShowsSomethingAndNoTwoOfASetAreAlike) {
    for (auto one = pictures().begin(); one != pictures().end(); ++one) {
        const auto& [file, picture] = *one;
        SCOPED_TRACE(file);
        const QImage shown = is_card(file) ? picture : top_of(picture);
        QImage ground = shown;
        ground.fill(is_card(file) ? QColor(Qt::transparent) : shown.pixelColor(0, shown.height() / 2));
        EXPECT_GT(difference(shown, ground), 0.05);
        for (auto other = std::next(one); other != pictures().end(); ++other) {
            const bool same_set = folder_of(file) == folder_of(other->first) &&
                                  (base_of(file).size() == 1) == (base_of(other->first).size() == 1);
            EXPECT_TRUE(!same_set || difference(picture, other->second) > 0.01) << other->first;
        }
    }
}

TEST(Pictures, TheRightHandStandsOutByLightnessToo) {
    for (const auto& [file, picture] : pictures()) {
        if (file.find("RightHand/") == std::string::npos) continue;
        const char* left_hand = file.starts_with("Simple/Back/") ? "Simple/" : "Simple/Back/";
        const auto left = pictures().find(left_hand + file.substr(file.find("RightHand/") + 10));
        if (left == pictures().end()) continue;  // no game asks for it
        SCOPED_TRACE(file);
        EXPECT_GT(difference(picture, left->second), 0.3);
        const QPoint lip = QPoint(10, 37) * (picture.width() / kKey.width());
        EXPECT_GT(luminance(left->second.pixel(lip)), 3 * luminance(picture.pixel(lip)));
    }
}

TEST(Pictures, LettersAreDarkOnLightAndStandOnOneLine) {
    const QRect small_model = ink_of(top_of(pictures().at("Simple/Lower/X.bmp")));
    const QRect capital_model = ink_of(top_of(pictures().at("Simple/Upper/X.bmp")));
    for (const auto& [file, picture] : pictures()) {
        const bool lower = folder_of(file).ends_with("Lower");
        if (!lower && !folder_of(file).ends_with("Upper")) continue;
        SCOPED_TRACE(file);
        const char key = base_of(file)[0];
        const QImage top = top_of(picture);
        const QRect ink = ink_of(top);
        ASSERT_FALSE(ink.isEmpty());
        EXPECT_TRUE(top.rect().adjusted(1, 1, -1, -1).contains(ink)) << "runs off the cap";
        EXPECT_NEAR(ink.center().x(), top.rect().center().x(), 0.06 * top.width());

        const bool small = lower && key >= 'A';  // digits are as tall as capitals in both sets
        const QRect& model = small ? small_model : capital_model;
        const int dips = ink.bottom() - model.bottom();
        const int rises = model.top() - ink.top();
        const auto is_one_of = [key](std::string_view keys) { return keys.find(key) != std::string_view::npos; };
        // What neither hangs nor reaches up keeps the line; round letters pass it by a little.
        EXPECT_TRUE(is_one_of(small ? "GJPQY" : "Q") ? dips > 6 : std::abs(dips) <= 2) << dips;
        EXPECT_TRUE(small && is_one_of("BDFHIJKLT") ? rises > 6 : std::abs(rises) <= 2) << rises;
    }
}

TEST(Drawings, OneThatShowsNothingIsRefusedByName) {
    const auto folder = std::filesystem::path(testing::TempDir()) / "marrowfen-drawings";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "ghost.svg") << R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 44 40"><g/></svg>)";
    try {
        (void)marrowfen::Drawings(folder, kKey).image("ghost");
        ADD_FAILURE() << "an empty drawing was taken";
    } catch (const marrowfen::Failure& failure) {
        EXPECT_EQ(failure.what(), "The drawing " + (folder / "ghost.svg").string() + " shows nothing.");
    }
    std::filesystem::remove_all(folder);
}
