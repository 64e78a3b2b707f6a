<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>Lorivane</name>
    <message>
        <source>@Err_Cannot_Show_Help@</source>
        <translation>The help document cannot be opened.</translation>
    </message>
    <message>
        <source>@Err_Cannot_Show_Prefs_Win@</source>
        <translation>The preferences window cannot be opened.</translation>
    </message>
    <message>
        <source>@Err_Cannot_Show_Image_Info_Win@</source>
        <translation>The image information window cannot be opened.</translation>
    </message>
    <message>
        <source>@Err_No_Image_Is_Displayed@</source>
        <translation>No image is displayed.</translation>
    </message>
    <message>
        <source>@Hint_Excutable_Maybe_Broken@</source>
        <translation>The program file may be damaged. Please install the program again.</translation>
    </message>
    <message>
        <source>@Err_Image_Is_Damaged %FileName%@</source>
        <translation>"%FileName%" cannot be shown: the file is damaged.</translation>
    </message>
    <message>
        <source>@Err_Image_Is_Incomplete %FileName%@</source>
        <translation>"%FileName%" cannot be shown: the file is incomplete.</translation>
    </message>
    <message>
        <source>@Err_Image_Is_Too_Large %FileName%@</source>
        <translation>"%FileName%" cannot be shown: the picture is too large for the memory.</translation>
    </message>
    <message>
        <source>@Err_No_Known_Image %FileName%@</source>
        <translation>"%FileName%" is not a picture of a known format.</translation>
    </message>
    <message>
        <source>@Err_File_Cannot_Be_Read %FileName%@</source>
        <translation>"%FileName%" cannot be read.</translation>
    </message>
    <message>
        <source>@Err_File_Is_Gone %FileName%@</source>
        <translation>"%FileName%" is not there any more.</translation>
    </message>
    <message>
        <source>@Err_No_Further_Image %FileName%@</source>
        <translation>There is no further picture beside "%FileName%".</translation>
    </message>
    <message>
        <source>@Err_No_Image_In_Folder %FileName%@</source>
        <translation>There are no pictures in the folder "%FileName%".</translation>
    </message>
    <message>
        <source>@Err_Folder_Cannot_Be_Read %FileName%@</source>
        <translation>The folder "%FileName%" cannot be read.</translation>
    </message>
    <message>
        <source>@Ask_Del_One_MRUF %FileName%@</source>
        <translation>Remove "%FileName%" from the list of recently used files?
The file itself is not deleted.</translation>
    </message>
    <message>
        <source>@Hint_Del_One_MRUF@</source>
        <translation>To remove a single entry, hold down the Alt key while choosing it.</translation>
    </message>
    <message>
        <source>@Ask_Del_All_MRUFs@</source>
        <translation>Remove all entries from the list of recently used files?
The files themselves are not deleted.</translation>
    </message>
</context>
</TS>
