#pragma once

#include "board/key_table.h"
#include "core/artwork.h"
#include "core/program_form.h"
#include "platform/forms/picture_button.h"

namespace marrowfen {

/// The play board: a drawn keyboard with 36 keys, and a row of tiles below it. One form plays one game.
class frmSimpleKeyBoard final : public ListeningForm {
public:
    static constexpr FormId kId = FormId::frmSimpleKeyBoard;
    explicit frmSimpleKeyBoard(Program& program);

    // clang-format off
    //                           left   top  width height
    Image BackPicture {*this, {     0,    0, 12015, 6210}, art::kBoard};
    ControlArray<PictureBox, 1> Keys;
    Image Close_Pre   {*this, {  8580, 4890,  2745,  690}, art::kClosePressed};
    Image close_De    {*this, {  8580, 4890,  2745,  660}, art::kClose, "Close"};
    ControlArray<PictureBox, 0> DragKey;
    Shape PanBorder;
    // clang-format on

    void SetAlpha();  ///< lays out all 36 letters
    void SetRhand();

    void load() override;
    void resized() override;

    /// Gives a tile the next letter that is still out, drawn at random. Needs `PanelsDone` below 36.
    void deal_next(PictureBox& tile);
    /// After a right answer: the tile gets a new letter, or leaves the board when all are out.
    void refill(PictureBox& tile);
    /// The key of a letter in either case, or of a digit; nullptr: there is none.
    [[nodiscard]] PictureBox* find_key(std::string_view letter);
    /// The key is done: it shows what it was given.
    static void fill(PictureBox& key, const Picture& picture);
    /// Lets the pupil play.
    void enable_play();
    [[nodiscard]] Control* way_out() override { return &close_De; }

private:
    PictureButton close_{close_De, Close_Pre, [this] { leave_game(); }};
    State::Whole CurrentKey = 0;  ///< the key whose letter was drawn last
    const PictureBox* marked_ = nullptr;

    [[nodiscard]] Result<bool> read_template();  ///< false: there is no such game
    void paint_faces();
    void paint_face(int number);
    void deal_first_tiles();
    void deal(PictureBox& tile, int key);
    [[nodiscard]] bool is_split() const;
    [[nodiscard]] bool is_right_hand(int key) const;
    [[nodiscard]] Picture tile_picture(int key) const;

    void mark(const PictureBox& field);
    void drag_over(PictureBox& key, DragState state);
    void drop(PictureBox& key, PictureBox& tile);
    void leave_game();
};

}  // namespace marrowfen
