#include "xyzWidget.h"

#include "bsDoubleWidget.h"

#include "TestRegistry.h"

#include <QBoxLayout>
#include <QDoubleSpinBox>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QSignalSpy>
#include <QTranslator>
#include <QtTest>

namespace
{

using Report = QList<QVariant>;

QDoubleSpinBox *spinBox(const bsDoubleWidget *editor)
{
    return editor->findChild<QDoubleSpinBox *>();
}

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

/// A language in which each text of the group begins with "de ".
class OtherLanguage : public QTranslator
{
public:
    OtherLanguage() { QCoreApplication::installTranslator(this); }
    ~OtherLanguage() override { QCoreApplication::removeTranslator(this); }

    QString translate(const char *context, const char *text, const char * /*remark*/,
                      int /*number*/) const override
    {
        const bool isMeant = qstrcmp(context, "xyzWidget") == 0;
        return isMeant ? QStringLiteral("de ") + QString::fromUtf8(text) : QString();
    }
    bool isEmpty() const override { return false; }
};

QStringList labelsOf(const xyzWidget &widget)
{
    return {widget.xEditor()->labelText(), widget.yEditor()->labelText(), widget.zEditor()->labelText()};
}

} // namespace

class xyzWidgetTest : public QObject
{
    Q_OBJECT

private slots:
    void shouldOfferItsSignalsSlotsAndPropertiesInOrder()
    {
        const QMetaObject &meta = xyzWidget::staticMetaObject;
        QStringList methods;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
            methods << QString::fromLatin1(meta.method(i).methodSignature());
        QStringList properties;
        for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i)
            properties << QString::fromLatin1(meta.property(i).name());
        QCOMPARE(methods,
                 words("valueChanged(double,double,double) xyzEditingBegin() xyzEditingFinished() "
                       "setValues(double,double,double) adjustValues(double,double,double) setXValue(double) "
                       "setYValue(double) setZValue(double) setLabels(QString,QString,QString) "
                       "setXLabel(QString) setYLabel(QString) setZLabel(QString) reset() "
                       "setLayoutHorizontal(bool) setXRange(double,double) setYRange(double,double) "
                       "setZRange(double,double) setXWrapping(bool) setYWrapping(bool) setZWrapping(bool) "
                       "xyzChanged(double)"));
        QCOMPARE(properties, words("xValue yValue zValue groupTitle"));
    }

    void shouldStartWithThreeLabelledEditorsWithoutMargin()
    {
        const xyzWidget widget;
        QCOMPARE(widget.xEditor()->labelText(), QStringLiteral("X :"));
        QCOMPARE(widget.yEditor()->labelText(), QStringLiteral("Y :"));
        QCOMPARE(widget.zEditor()->labelText(), QStringLiteral("Z :"));
        QCOMPARE(widget.findChildren<bsDoubleWidget *>(QString(), Qt::FindDirectChildrenOnly).size(), 3);
        QCOMPARE(widget.layout()->contentsMargins(), QMargins());
    }

    void shouldReportAllThreeValuesOfATypedNumber()
    {
        xyzWidget widget;
        widget.show();
        widget.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&widget));
        widget.adjustValues(1.0, 2.0, 3.0);
        QSignalSpy reports(&widget, &xyzWidget::valueChanged);
        QSignalSpy begins(&widget, &xyzWidget::xyzEditingBegin);
        QSignalSpy ends(&widget, &xyzWidget::xyzEditingFinished);
        Report expected({1.0, 2.0, 3.0});
        int edits = 0;
        for (bsDoubleWidget *editor : {widget.xEditor(), widget.yEditor(), widget.zEditor()}) {
            QDoubleSpinBox *box = spinBox(editor);
            reports.clear();
            box->setFocus();
            box->selectAll();
            QTest::keyClicks(box, QStringLiteral("8"));
            QTest::keyClick(box, Qt::Key_Return);

            expected[edits++] = 8.0;
            QCOMPARE(reports.first(), expected);
            QCOMPARE(reports.last(), expected);
            QCOMPARE(begins.count(), edits);
            QCOMPARE(ends.count(), edits);
        }
    }

    void shouldReportSetValuesAndKeepQuietAboutEchoes()
    {
        xyzWidget widget;
        QSignalSpy reports(&widget, &xyzWidget::valueChanged);
        widget.adjustValues(4.0, 5.0, 6.0);
        QCOMPARE(reports.count(), 0);
        QCOMPARE(widget.zValue(), 6.0);
        widget.setZValue(9.0);
        QCOMPARE(reports.takeFirst(), Report({4.0, 5.0, 9.0}));
        widget.setValues(1.0, 5.0, 2.0);
        QCOMPARE(reports, (QList<Report>{Report({1.0, 5.0, 9.0}), Report({1.0, 5.0, 2.0})}));
        widget.reset();
        QCOMPARE(reports.count(), 2);
        QCOMPARE(widget.xValue() + widget.yValue() + widget.zValue(), 0.0);
    }

    void shouldSetTheRangeAndWrappingOfEachEditor()
    {
        xyzWidget widget;
        widget.setXRange(-1.0, 1.0);
        widget.setYRange(-2.0, 2.0);
        widget.setZRange(-3.0, 3.0);
        widget.setYWrapping(true);
        QCOMPARE(spinBox(widget.xEditor())->maximum(), 1.0);
        QCOMPARE(spinBox(widget.yEditor())->minimum(), -2.0);
        QCOMPARE(spinBox(widget.yEditor())->maximum(), 1.0);
        QCOMPARE(spinBox(widget.zEditor())->minimum(), -3.0);
        QVERIFY(!widget.xEditor()->wrapping());
        QVERIFY(widget.yEditor()->wrapping());
        widget.setXWrapping(true);
        widget.setZWrapping(true);
        QVERIFY(widget.xEditor()->wrapping() && widget.zEditor()->wrapping());
    }

    void shouldShareStepDecimalsAndSuffixAmongItsEditors()
    {
        xyzWidget widget;
        widget.setSingleStep(2.5);
        widget.setDecimals(3);
        widget.setSuffix(QStringLiteral(" mm"));
        for (const bsDoubleWidget *editor : {widget.xEditor(), widget.yEditor(), widget.zEditor()}) {
            QCOMPARE(editor->singleStep(), 2.5);
            QCOMPARE(spinBox(editor)->text(), QStringLiteral("0.000 mm"));
        }
        QCOMPARE(widget.singleStep(), 2.5);
    }

    void shouldRenewItsOwnLabelsWhenTheLanguageChanges()
    {
        // GIVEN
        xyzWidget widget;
        widget.setYLabel(QStringLiteral("height"));
        widget.show();
        const auto nameOfX = [&widget] { return spinBox(widget.xEditor())->accessibleName(); };
        {
            // WHEN
            const OtherLanguage german;
            // THEN
            QTRY_COMPARE(labelsOf(widget), QStringList({"de X :", "height", "de Z :"}));
            QCOMPARE(nameOfX(), QStringLiteral("de X :"));
        }
        QTRY_COMPARE(labelsOf(widget), QStringList({"X :", "height", "Z :"}));
        QCOMPARE(nameOfX(), QStringLiteral("X :"));
    }

    void shouldTakeTitleLabelsAndDirection()
    {
        xyzWidget widget;
        widget.setProperty("groupTitle", QStringLiteral("Position"));
        widget.setLabels(QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"));
        QCOMPARE(widget.title(), QStringLiteral("Position"));
        QCOMPARE(widget.groupTitle(), QStringLiteral("Position"));
        QCOMPARE(widget.xEditor()->labelText() + widget.yEditor()->labelText() +
                     widget.zEditor()->labelText(),
                 QStringLiteral("abc"));
        auto *layout = qobject_cast<QBoxLayout *>(widget.layout());
        widget.setLayoutHorizontal(true);
        QCOMPARE(layout->direction(), QBoxLayout::LeftToRight);
        widget.setLayoutHorizontal(false);
        QCOMPARE(layout->direction(), QBoxLayout::TopToBottom);
    }
};

ROOM_TEST_CLASS(xyzWidgetTest)
#include "xyzWidgetTest.moc"
