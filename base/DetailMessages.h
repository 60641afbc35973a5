#pragma once

/// Names for the numbers of the strings of the pane in which the selected entries are edited. The texts are
/// in languages/.
namespace nesk::Message {

constexpr int DetailsTitle = 35500;
constexpr int DetailsChoose = 35501;
constexpr int DetailsDiffer = 35502;
constexpr int DetailsNothing = 35503;
constexpr int DetailsSeveral = 35504; // %0% number
constexpr int DetailsHelpTopic = 35505;
constexpr int DetailsChooseOf = 35506; // %0% field
constexpr int DetailsTopicKept = 35507;
constexpr int DetailsPlace = 35508; // %0% place of the entry
constexpr int DetailsRoot = 35509;

} // namespace nesk::Message
