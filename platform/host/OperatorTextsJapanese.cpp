#include "OperatorTexts.h"

namespace ORVLib::OperatorTexts {

namespace {

constexpr Text TEXTS[] = {
    {1, "設定を変更しました。"},
    {2, "パスワードを変更しました。"},
    {11, "要求を実行できませんでした。もう一度操作してください。"},
    {13, "管理ボードが応答できません。しばらくしてからもう一度操作してください。"},
    {14,
     "管理ボードからの応答が時間内にありませんでした。しばらくしてからもう一度操作してください。"},
    {20, "管理ボードとの通信に失敗しました。"},
    {24, "画面の作成中に内部エラーが発生しました。"},
    {78, "管理ボードが要求を拒否しました。"},
    {79, "要求の実行中に管理ボードでエラーが発生しました。"},
    {105, "ほかの操作が実行中です。終了するまでお待ちください。"},
    {280, "電源の操作を実行しました。"},
};

}  // namespace

Table japanese() {
    return {TEXTS, sizeof TEXTS / sizeof *TEXTS};
}

}  // namespace ORVLib::OperatorTexts
