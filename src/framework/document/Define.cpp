#include "framework/document/Define.h"

#include "framework/text/NumberText.h"

QString GetNumFormat(int interi, int decimali, Define& define)
{
    define.NumFormat = NumFormatOf({interi, decimali});
    return define.NumFormat;
}
