#include "Letters.h"

#include "LookChange.h"

#include <QApplication>
#include <QFont>

namespace
{
int& inForce()
{
    static int percent = Letters::least;
    return percent;
}
} // namespace

void Letters::apply(int percent)
{
    static QFont desktop;
    percent = qBound(least, percent, most);
    if (percent == inForce())
        return;
    if (inForce() == least)
        desktop = QApplication::font();
    QFont font = desktop;
    if (percent != least && font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * percent / least);
    else if (percent != least)
        font.setPixelSize(font.pixelSize() * percent / least);
    inForce() = percent;
    const LookChange change;
    QApplication::setFont(font);
}

int Letters::current()
{
    return inForce();
}
