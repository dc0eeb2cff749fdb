#include <reportcore/condition.h>

#include <reportcore/areapoints.h>
#include <reportcore/conditionnumbers.h>
#include <reportcore/ring.h>

#include <reportgenerator/reflection/reportfields.h>

#include <QtCore/QRegularExpression>

#include <algorithm>
#include <functional>
#include <utility>

namespace ReportCore {

using REPORTGENERATOR::IRGObject;

namespace {

using Test = Condition::Test;
using TestPointer = std::shared_ptr<const Test>;

// --- What can be asked

/// Any question, as a function.
class Question : public Test
{
public:
    using Ask = std::function<bool(const IRGObject& object)>;

    explicit Question(Ask ask) : m_ask(std::move(ask)) {}
    bool IsTrueOf(const IRGObject& object) const override { return m_ask(object); }

private:
    const Ask m_ask;
};

TestPointer Asking(Question::Ask ask)
{
    return std::make_shared<Question>(std::move(ask));
}

/// What is asked about a value that is set.
TestPointer AskingValue(const FieldPath& path, std::function<bool(const QVariant& value)> ask)
{
    return Asking([path, ask = std::move(ask)](const IRGObject& object) {
        const QVariant value = ValueAt(object, path);
        return value.isValid() && ask(value);
    });
}

// --- Sentences

/// More of them within each other are refused: each takes some of the stack.
constexpr int DEEPEST = 200;

class Parser
{
public:
    Parser(const ObjectInfo& info, const QString& text) : m_info(info), m_words(text) {}

    TestPointer ParseAll()
    {
        TestPointer test = ParseOr();
        if (m_words.Next().kind != WordKind::End)
            m_words.Expected("'and', 'or' or the end");
        return test;
    }

private:
    TestPointer ParseOr()
    {
        TestPointer left = ParseAnd();
        while (m_words.TakeIf(WordKind::Name, "or")) {
            const TestPointer right = ParseAnd();
            left = Asking([left, right](const IRGObject& object) {
                return left->IsTrueOf(object) || right->IsTrueOf(object);
            });
        }
        return left;
    }

    TestPointer ParseAnd()
    {
        TestPointer left = ParseNot();
        while (m_words.TakeIf(WordKind::Name, "and")) {
            const TestPointer right = ParseNot();
            left = Asking([left, right](const IRGObject& object) {
                return left->IsTrueOf(object) && right->IsTrueOf(object);
            });
        }
        return left;
    }

    TestPointer ParseNot()
    {
        if (++m_depth > DEEPEST)
            throw ConditionError{QStringLiteral("too much within each other"), m_words.Next().column};
        TestPointer test;
        if (m_words.TakeIf(WordKind::Name, "not")) {
            test = Asking([test = ParseNot()](const IRGObject& object) { return !test->IsTrueOf(object); });
        } else if (m_words.TakeIf(WordKind::Sign, "(")) {
            test = ParseOr();
            if (!m_words.TakeIf(WordKind::Sign, ")"))
                m_words.Expected("')'");
        } else {
            test = ParseTest();
        }
        --m_depth;
        return test;
    }

    TestPointer ParseTest()
    {
        if (m_words.Next().kind != WordKind::Name)
            m_words.Expected("the path of a field");
        const Word word = m_words.Take();
        const FieldPath path = PathOf(word);
        if (m_words.TakeIf(WordKind::Name, "set"))
            return Asking([path](const IRGObject& object) { return IsSet(object, path); });
        if (m_words.TakeIf(WordKind::Name, "unset"))
            return Asking([path](const IRGObject& object) { return !IsSet(object, path); });
        if (m_words.TakeIf(WordKind::Name, "contains"))
            return ParseContains(path, word);
        return ParseValueTest(path, word);
    }

    FieldPath PathOf(const Word& word) const
    {
        try {
            return FieldPath::Parse(m_info, word.text);
        } catch (const PathError& error) {
            throw ConditionError{error.text, word.column};
        }
    }

    TestPointer ParseValueTest(const FieldPath& path, const Word& word)
    {
        const Field& field = *path.Last().field;
        if (field.HasObjects())
            throw ConditionError{
                QStringLiteral("%1 is no value: 'set', 'unset' and 'contains' can be asked").arg(path.Text()),
                word.column};
        const int column = m_words.Next().column;
        if (m_words.TakeIf(WordKind::Name, "in")) {
            RequireNumber(field, path, column);
            return ParseIn(field, path);
        }
        if (m_words.TakeIf(WordKind::Sign, "~"))
            return ParseMatch(field, path, column);
        for (const char* sign : {"=", "!=", "<", "<=", ">", ">="}) {
            if (m_words.TakeIf(WordKind::Sign, sign))
                return ParseComparison(field, path, QLatin1String(sign), column);
        }
        m_words.Expected("a comparison");
    }

    static void RequireNumber(const Field& field, const FieldPath& path, int column)
    {
        if (field.Kind() != FieldKind::Number)
            throw ConditionError{QStringLiteral("%1 is no number").arg(path.Text()), column};
    }

    TestPointer ParseIn(const Field& field, const FieldPath& path)
    {
        const NumberRange range = TakeRange(m_words, field);
        return AskingValue(path, [range](const QVariant& value) {
            return range.low <= value.toDouble() && value.toDouble() <= range.high;
        });
    }

    TestPointer ParseMatch(const Field& field, const FieldPath& path, int column)
    {
        if (field.Kind() != FieldKind::Text && field.Kind() != FieldKind::Version)
            throw ConditionError{QStringLiteral("%1 is no text").arg(path.Text()), column};
        if (m_words.Next().kind != WordKind::String)
            m_words.Expected("a regular expression in quotes");
        const Word word = m_words.Take();
        const QRegularExpression pattern(word.text, QRegularExpression::UseUnicodePropertiesOption);
        if (!pattern.isValid())
            throw ConditionError{QStringLiteral("no regular expression: %1").arg(pattern.errorString()),
                                 word.column};
        return AskingValue(
            path, [pattern](const QVariant& value) { return pattern.match(value.toString()).hasMatch(); });
    }

    TestPointer ParseComparison(const Field& field, const FieldPath& path, const QString& sign, int column)
    {
        if (field.Kind() == FieldKind::Number) {
            const double number = TakeNumber(m_words, field);
            return AskingValue(path, [sign, number](const QVariant& value) {
                return Holds(sign, value.toDouble(), number);
            });
        }
        const bool isEquality = sign == QLatin1String("=") || sign == QLatin1String("!=");
        if (!isEquality)
            throw ConditionError{QStringLiteral("%1 is no number").arg(path.Text()), column};
        const bool isWanted = sign == QLatin1String("=");
        if (field.Kind() == FieldKind::Switch) {
            const bool isOn = m_words.TakeIf(WordKind::Name, "true");
            if (!isOn && !m_words.TakeIf(WordKind::Name, "false"))
                m_words.Expected("true or false");
            return AskingValue(path, [isOn, isWanted](const QVariant& value) {
                return (value.toBool() == isOn) == isWanted;
            });
        }
        if (m_words.Next().kind != WordKind::String)
            m_words.Expected("a text in quotes");
        return AskingValue(path, [text = m_words.Take().text, isWanted](const QVariant& value) {
            return (value.toString() == text) == isWanted;
        });
    }

    static bool Holds(const QString& sign, double left, double right)
    {
        if (sign == QLatin1String("="))
            return left == right;
        if (sign == QLatin1String("!="))
            return left != right;
        if (sign == QLatin1String("<"))
            return left < right;
        if (sign == QLatin1String("<="))
            return left <= right;
        return sign == QLatin1String(">") ? left > right : left >= right;
    }

    TestPointer ParseContains(const FieldPath& path, const Word& word)
    {
        const Field& field = *path.Last().field;
        FieldPath points = path;
        if (field.Kind() == FieldKind::Object) {
            const auto& fields = field.Object().All();
            const auto list = std::find_if(fields.begin(), fields.end(),
                                           [](const auto& below) { return HoldsPoints(*below); });
            if (list != fields.end())
                points.Enter(**list);
        }
        if (!HoldsPoints(*points.Last().field) || points.IsItem())
            throw ConditionError{QStringLiteral("%1 holds no points").arg(path.Text()), word.column};
        const double longitude = TakeNumber(m_words);
        if (!m_words.TakeIf(WordKind::Sign, ","))
            m_words.Expected("','");
        const double latitude = TakeNumber(m_words);
        return Asking([points, longitude, latitude](const IRGObject& object) {
            const IRGObject* const parent = FindParent(object, points);
            return parent && Surrounds(*parent, *points.Last().field, longitude, latitude);
        });
    }

    const ObjectInfo& m_info;
    Words m_words;
    int m_depth = 0;
};

} // namespace

Condition::Condition(std::shared_ptr<const Test> test) : m_test(std::move(test)) {}

Condition Condition::Parse(const ObjectInfo& info, const QString& text)
{
    return Condition(Parser(info, text).ParseAll());
}

} // namespace ReportCore
