<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>Lorivane</name>
    <message>
        <source>Lorivane</source>
        <translation>Lorivane</translation>
    </message>
    <message>
        <source>ZELKAN</source>
        <translation>ZELKAN</translation>
    </message>
    <message>
        <source>File</source>
        <translation>ファイル</translation>
    </message>
    <message>
        <source>Open...</source>
        <translation>開く...</translation>
    </message>
    <message>
        <source>Delete All MRUFs</source>
        <translation>最近使ったファイルの履歴をすべて消去</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>終了</translation>
    </message>
    <message>
        <source>View</source>
        <translation>表示</translation>
    </message>
    <message>
        <source>First Image [Home]</source>
        <translation>最初の画像 [Home]</translation>
    </message>
    <message>
        <source>Previous Image [Backspace]</source>
        <translation>前の画像 [Backspace]</translation>
    </message>
    <message>
        <source>Next Image [Space]</source>
        <translation>次の画像 [スペース]</translation>
    </message>
    <message>
        <source>Last Image [End]</source>
        <translation>最後の画像 [End]</translation>
    </message>
    <message>
        <source>Full Screen [Enter]</source>
        <translation>全画面表示 [Enter]</translation>
    </message>
    <message>
        <source>Don't Fit Anything</source>
        <translation>何も合わせない</translation>
    </message>
    <message>
        <source>Fit Window to Image</source>
        <translation>ウィンドウを画像に合わせる</translation>
    </message>
    <message>
        <source>Fit Image to Window</source>
        <translation>画像をウィンドウに合わせる</translation>
    </message>
    <message>
        <source>Scale Image to Window</source>
        <translation>画像をウィンドウに収まるように拡大縮小</translation>
    </message>
    <message>
        <source>Scale Image to Window Width</source>
        <translation>画像をウィンドウの幅に合わせて拡大縮小</translation>
    </message>
    <message>
        <source>Scale Image to Window Height</source>
        <translation>画像をウィンドウの高さに合わせて拡大縮小</translation>
    </message>
    <message>
        <source>Enable Comment</source>
        <translation>コメントを表示</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>画像</translation>
    </message>
    <message>
        <source>Smooth Scaling</source>
        <translation>滑らかに拡大縮小</translation>
    </message>
    <message>
        <source>Tool</source>
        <translation>ツール</translation>
    </message>
    <message>
        <source>Show Image Information...</source>
        <translation>画像の情報を表示...</translation>
    </message>
    <message>
        <source>Preferences...</source>
        <translation>設定...</translation>
    </message>
    <message>
        <source>ZELKAN Common Preferences...</source>
        <translation>ZELKAN 共通設定...</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>ヘルプ</translation>
    </message>
    <message>
        <source>About...</source>
        <translation>バージョン情報...</translation>
    </message>
    <message>
        <source>Just a moment...</source>
        <translation>しばらくお待ちください...</translation>
    </message>
    <message>
        <source>%AppName%: Open</source>
        <translation>%AppName%: 開く</translation>
    </message>
    <message>
        <source>* %AppName% *</source>
        <translation>* %AppName% *</translation>
    </message>
    <message>
        <source>Understand</source>
        <translation>了解</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>はい</translation>
    </message>
    <message>
        <source>No</source>
        <translation>いいえ</translation>
    </message>
    <message>
        <source>Delete All</source>
        <translation>すべて消去</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Defaults</source>
        <translation>初期設定に戻す</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>コメント</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>上</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>下</translation>
    </message>
    <message>
        <source>Margin: </source>
        <translation>外側の余白: </translation>
    </message>
    <message>
        <source>Padding: </source>
        <translation>内側の余白: </translation>
    </message>
    <message>
        <source>Font: </source>
        <translation>フォント: </translation>
    </message>
    <message>
        <source>Size: </source>
        <translation>サイズ: </translation>
    </message>
    <message>
        <source>Extension of Comment File: </source>
        <translation>コメントファイルの拡張子: </translation>
    </message>
    <message>
        <source>Add &gt;&gt;</source>
        <translation>追加 &gt;&gt;</translation>
    </message>
    <message>
        <source>&lt;&lt; Remove</source>
        <translation>&lt;&lt; 削除</translation>
    </message>
    <message>
        <source>Encoding: </source>
        <translation>文字コード: </translation>
    </message>
    <message>
        <source>UTF-8 (BeOS)</source>
        <translation>UTF-8 (BeOS)</translation>
    </message>
    <message>
        <source>Shift-JIS</source>
        <translation>シフト JIS</translation>
    </message>
    <message>
        <source>JIS</source>
        <translation>JIS</translation>
    </message>
    <message>
        <source>Auto Detect</source>
        <translation>自動判別</translation>
    </message>
    <message>
        <source>Select...</source>
        <translation>選択...</translation>
    </message>
    <message>
        <source>Colors</source>
        <translation>色</translation>
    </message>
    <message>
        <source>Target: </source>
        <translation>対象: </translation>
    </message>
    <message>
        <source>Backgrounds</source>
        <translation>背景</translation>
    </message>
    <message>
        <source>Comment Backgrounds</source>
        <translation>コメントの背景</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>不透明度</translation>
    </message>
    <message>
        <source>Etc.</source>
        <translation>その他</translation>
    </message>
    <message>
        <source>Display Option: </source>
        <translation>表示方法: </translation>
    </message>
    <message>
        <source>Enable Pre-load</source>
        <translation>画像を先読みする</translation>
    </message>
    <message>
        <source>%FileName% Information</source>
        <translation>%FileName% の情報</translation>
    </message>
    <message>
        <source>File Name: </source>
        <translation>ファイル名: </translation>
    </message>
    <message>
        <source>Folder: </source>
        <translation>フォルダー: </translation>
    </message>
    <message>
        <source>Format: </source>
        <translation>形式: </translation>
    </message>
    <message>
        <source>Memory Usage: </source>
        <translation>メモリ使用量: </translation>
    </message>
    <message>
        <source>ZELKAN Common Preferences</source>
        <translation>ZELKAN 共通設定</translation>
    </message>
    <message>
        <source>Accelerator Format: </source>
        <translation>アクセスキーの表記: </translation>
    </message>
    <message>
        <source>(None)</source>
        <translation>(なし)</translation>
    </message>
    <message>
        <source>Flat Tool Bar</source>
        <translation>フラットなツールバー</translation>
    </message>
    <message>
        <source>About %AppName%</source>
        <translation>%AppName% について</translation>
    </message>
    <message>
        <source>Copyright (C) %AppAuthor%</source>
        <translation>Copyright © %AppAuthor%</translation>
    </message>
    <message>
        <source>ReadMe_Eng.txt</source>
        <translation>ReadMe_Jpn.txt</translation>
    </message>
    <message>
        <source>@Err_Cannot_Show_Help@</source>
        <translation>ヘルプ文書を開けません。</translation>
    </message>
    <message>
        <source>@Err_Cannot_Show_Prefs_Win@</source>
        <translation>設定ウィンドウを開けません。</translation>
    </message>
    <message>
        <source>@Err_Cannot_Show_Image_Info_Win@</source>
        <translation>画像情報ウィンドウを開けません。</translation>
    </message>
    <message>
        <source>@Err_No_Image_Is_Displayed@</source>
        <translation>画像が表示されていません。</translation>
    </message>
    <message>
        <source>@Hint_Excutable_Maybe_Broken@</source>
        <translation>プログラムファイルが壊れている可能性があります。インストールし直してください。</translation>
    </message>
    <message>
        <source>@Err_Image_Is_Damaged %FileName%@</source>
        <translation>「%FileName%」を表示できません。ファイルが壊れています。</translation>
    </message>
    <message>
        <source>@Err_Image_Is_Incomplete %FileName%@</source>
        <translation>「%FileName%」を表示できません。ファイルが途中で切れています。</translation>
    </message>
    <message>
        <source>@Err_Image_Is_Too_Large %FileName%@</source>
        <translation>「%FileName%」を表示できません。画像が大きすぎてメモリが足りません。</translation>
    </message>
    <message>
        <source>@Err_No_Known_Image %FileName%@</source>
        <translation>「%FileName%」は対応している形式の画像ではありません。</translation>
    </message>
    <message>
        <source>@Err_File_Cannot_Be_Read %FileName%@</source>
        <translation>「%FileName%」を読み込めません。</translation>
    </message>
    <message>
        <source>@Err_File_Is_Gone %FileName%@</source>
        <translation>「%FileName%」は見つかりません。</translation>
    </message>
    <message>
        <source>@Err_No_Further_Image %FileName%@</source>
        <translation>「%FileName%」の先に画像はありません。</translation>
    </message>
    <message>
        <source>@Err_No_Image_In_Folder %FileName%@</source>
        <translation>フォルダー「%FileName%」には画像がありません。</translation>
    </message>
    <message>
        <source>@Err_Folder_Cannot_Be_Read %FileName%@</source>
        <translation>フォルダー「%FileName%」を読み込めません。</translation>
    </message>
    <message>
        <source>@Ask_Del_One_MRUF %FileName%@</source>
        <translation>最近使ったファイルの履歴から「%FileName%」を消去しますか?
ファイル自体は削除されません。</translation>
    </message>
    <message>
        <source>@Hint_Del_One_MRUF@</source>
        <translation>項目を 1 つだけ消去するには、Alt キーを押しながらその項目を選んでください。</translation>
    </message>
    <message>
        <source>@Ask_Del_All_MRUFs@</source>
        <translation>最近使ったファイルの履歴をすべて消去しますか?
ファイル自体は削除されません。</translation>
    </message>
    <message>
        <source>Position in Folder</source>
        <translation>フォルダー内の位置</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>形式</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>大きさ</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>表示倍率</translation>
    </message>
</context>
</TS>
