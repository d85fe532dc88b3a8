// The LISP interpreter.
#include <gtest/gtest.h>

#include <map>

#include "lisp/interpreter.h"
#include "lisp/reader.h"

namespace workbench::test {
namespace {

using namespace lisp;

class FakeSurroundings : public Surroundings {
  public:
    void Print(const std::wstring& text) override { printed += text; }
    std::optional<Value> GetVariable(const std::wstring& name) override {
        const auto found = variables.find(name);
        return found == variables.end() ? std::nullopt : std::optional(found->second);
    }
    bool SetVariable(const std::wstring& name, const Value& value) override {
        if (!variables.contains(name)) {
            return false;
        }
        variables[name] = value;
        return true;
    }
    std::optional<std::wstring> GetEnvironment(const std::wstring& name) override {
        const auto found = environment.find(name);
        return found == environment.end() ? std::nullopt : std::optional(found->second);
    }
    void SetEnvironment(const std::wstring& name, const std::wstring& value) override {
        environment[name] = value;
    }
    std::wstring FindFile(const std::wstring& name) override { return files.contains(name) ? name : L""; }
    bool ReadFile(const std::wstring& path, std::wstring& text) override {
        text = files[path];
        return true;
    }
    bool RunCommand(const std::vector<std::wstring>& input) override {
        commands.push_back(input);
        return commandsWork;
    }
    bool LoadApplication(const std::wstring& path) override { return path == L"good.arx"; }
    bool UnloadApplication(const std::wstring& path) override { return path == L"good.arx"; }
    bool IsCancelled() override { return cancelled; }

    std::wstring printed;
    std::map<std::wstring, Value> variables;
    std::map<std::wstring, std::wstring> environment, files;
    std::vector<std::vector<std::wstring>> commands;
    bool commandsWork = true;
    bool cancelled = false;
};

class LispTest : public testing::Test {
  protected:
    // What the last expression prints as; an error gives what was printed.
    std::wstring Run(const std::wstring& text) {
        Value value;
        m_around.printed.clear();
        return m_lisp.Run(text, value) ? ToText(value, true) : m_around.printed;
    }

    FakeSurroundings m_around;
    Interpreter m_lisp{m_around};
};

TEST_F(LispTest, Atoms) {
    EXPECT_EQ(Run(L"5"), L"5");
    EXPECT_EQ(Run(L"-2.5"), L"-2.5");
    EXPECT_EQ(Run(L"2.0"), L"2.0");
    EXPECT_EQ(Run(L"1e3"), L"1000.0");
    EXPECT_EQ(Run(L"\"a\\\\b\\n\\\"\""), L"\"a\\\\b\\n\\\"\"");
    EXPECT_EQ(Run(L"nil"), L"nil");
    EXPECT_EQ(Run(L"T"), L"T");
    EXPECT_EQ(Run(L"unbound"), L"nil");
    EXPECT_EQ(Run(L"'Symbol"), L"SYMBOL");
    EXPECT_EQ(Run(L"pi"), L"3.14159");
}

TEST_F(LispTest, IntegersTooLargeBecomeReals) {
    EXPECT_EQ(Run(L"2147483647"), L"2147483647");
    EXPECT_EQ(Run(L"2147483648"), L"2.14748e+09");
    EXPECT_EQ(Run(L"(+ 2147483647 1)"), L"2.14748e+09");
    EXPECT_EQ(Run(L"(* 100000 100000)"), L"1e+10");
    EXPECT_EQ(Run(L"(1- -2147483648)"), L"-2.14748e+09");
    EXPECT_EQ(Run(L"(/ -2147483648 -1)"), L"2.14748e+09");
    EXPECT_EQ(Run(L"(abs -2147483648)"), L"2.14748e+09");
    EXPECT_EQ(Run(L"(expt 2 40)"), L"1.09951e+12");
    EXPECT_EQ(Run(L"(fix 1e300)"), L"1e+300");
    EXPECT_EQ(Run(L"(rem -2147483648 -1)"), L"0");
}

TEST_F(LispTest, Arithmetic) {
    EXPECT_EQ(Run(L"(+ 1 2 3)"), L"6");
    EXPECT_EQ(Run(L"(- 5)"), L"-5");
    EXPECT_EQ(Run(L"(- 10 1 2)"), L"7");
    EXPECT_EQ(Run(L"(/ 7 2)"), L"3");
    EXPECT_EQ(Run(L"(/ 7 2.0)"), L"3.5");
    EXPECT_EQ(Run(L"(+)"), L"0");
    EXPECT_EQ(Run(L"(max 1 2.5 2)"), L"2.5");
    EXPECT_EQ(Run(L"(rem 7 3)"), L"1");
    EXPECT_EQ(Run(L"(/ 1 0)"), L"; error: divide by zero\n");
    EXPECT_EQ(Run(L"(+ 1 \"a\")"), L"; error: bad argument type: numberp: \"a\"\n");
    EXPECT_EQ(Run(L"(lsh 1 40)"), L"0");
    EXPECT_EQ(Run(L"(lsh 8 -2)"), L"2");
    EXPECT_EQ(Run(L"(sqrt -1)"), L"; error: function undefined for argument: -1\n");
}

TEST_F(LispTest, Comparison) {
    EXPECT_EQ(Run(L"(< 1 2 3)"), L"T");
    EXPECT_EQ(Run(L"(< 1 3 2)"), L"nil");
    EXPECT_EQ(Run(L"(= 1 1.0)"), L"T");
    EXPECT_EQ(Run(L"(= \"a\" \"a\")"), L"T");
    EXPECT_EQ(Run(L"(/= 1 2)"), L"T");
    EXPECT_EQ(Run(L"(>= \"b\" \"a\")"), L"T");
    EXPECT_EQ(Run(L"(equal '(1 (2 3)) '(1 (2 3)))"), L"T");
    EXPECT_EQ(Run(L"(equal 1.0 1.01 0.1)"), L"T");
    EXPECT_EQ(Run(L"(eq '(1) '(1))"), L"nil");
}

TEST_F(LispTest, Conditions) {
    EXPECT_EQ(Run(L"(if nil 1 2)"), L"2");
    EXPECT_EQ(Run(L"(if nil 1)"), L"nil");
    EXPECT_EQ(Run(L"(if T 1)"), L"1");
    EXPECT_EQ(Run(L"(cond (nil 1) ((= 1 1) 2 3) (T 4))"), L"3");
    EXPECT_EQ(Run(L"(cond (5))"), L"5");
    EXPECT_EQ(Run(L"(and 1 2)"), L"T");
    EXPECT_EQ(Run(L"(and 1 nil (/ 1 0))"), L"nil");
    EXPECT_EQ(Run(L"(or nil 2 (/ 1 0))"), L"T");
    EXPECT_EQ(Run(L"(not nil)"), L"T");
}

TEST_F(LispTest, Loops) {
    EXPECT_EQ(Run(L"(setq i 0) (while (< i 5) (setq i (1+ i)))"), L"5");
    EXPECT_EQ(Run(L"(setq n 0) (repeat 3 (setq n (+ n 2)))"), L"6");
    EXPECT_EQ(Run(L"(setq s 0) (foreach x '(1 2 3) (setq s (+ s x)))"), L"6");
    EXPECT_EQ(Run(L"(repeat -1 (/ 1 0))"), L"nil");
}

TEST_F(LispTest, Functions_HaveParametersAndLocals) {
    EXPECT_EQ(Run(L"(setq b 7) (defun f (a / b) (setq b (* a 2)) (+ a b)) (list (f 3) b)"), L"(9 7)");
    EXPECT_EQ(Run(L"(defun g () x) (defun h (x) (g)) (h 5)"), L"5");  // dynamic scope
    EXPECT_EQ(Run(L"((lambda (x y) (+ x y)) 1 2)"), L"3");
    EXPECT_EQ(Run(L"(defun fact (n) (if (< n 2) 1 (* n (fact (1- n))))) (fact 10)"), L"3628800");
    EXPECT_EQ(Run(L"(f)"), L"; error: too few arguments\n");
    EXPECT_EQ(Run(L"(f 1 2)"), L"; error: too many arguments\n");
    EXPECT_EQ(Run(L"(nothing 1)"), L"; error: no function definition: NOTHING\n");
    EXPECT_EQ(Run(L"(5 1)"), L"; error: bad function: 5\n");
}

TEST_F(LispTest, LocalsAreRestoredAfterAnError) {
    EXPECT_EQ(Run(L"(setq a 1) (defun bad (a) (/ 1 0)) (bad 5)"), L"; error: divide by zero\n");
    EXPECT_EQ(Run(L"a"), L"1");
}

TEST_F(LispTest, Lists) {
    EXPECT_EQ(Run(L"(cons 1 '(2 3))"), L"(1 2 3)");
    EXPECT_EQ(Run(L"(cons 1 2)"), L"(1 . 2)");
    EXPECT_EQ(Run(L"'(1 . (2))"), L"(1 2)");
    EXPECT_EQ(Run(L"(list (car '(1 2)) (cadr '(1 2)) (cddr '(1 2 3)) (caddr '(1 2 3)))"), L"(1 2 (3) 3)");
    EXPECT_EQ(Run(L"(car nil)"), L"nil");
    EXPECT_EQ(Run(L"(append '(1) '(2 3) nil '(4))"), L"(1 2 3 4)");
    EXPECT_EQ(Run(L"(reverse '(1 2 3))"), L"(3 2 1)");
    EXPECT_EQ(Run(L"(length '(1 2 3))"), L"3");
    EXPECT_EQ(Run(L"(nth 1 '(a b c))"), L"B");
    EXPECT_EQ(Run(L"(nth 9 '(a b c))"), L"nil");
    EXPECT_EQ(Run(L"(last '(1 2))"), L"2");
    EXPECT_EQ(Run(L"(assoc 'b '((a . 1) (b . 2)))"), L"(B . 2)");
    EXPECT_EQ(Run(L"(cdr (assoc \"x\" '((\"x\" . 5))))"), L"5");
    EXPECT_EQ(Run(L"(member 2 '(1 2 3))"), L"(2 3)");
    EXPECT_EQ(Run(L"(mapcar '+ '(1 2 3) '(10 20))"), L"(11 22)");
    EXPECT_EQ(Run(L"(mapcar '(lambda (x) (* x x)) '(1 2 3))"), L"(1 4 9)");
    EXPECT_EQ(Run(L"(mapcar (function (lambda (x) (1+ x))) '(1))"), L"(2)");
    EXPECT_EQ(Run(L"(apply '+ '(1 2 3))"), L"6");
    EXPECT_EQ(Run(L"(subst 9 2 '(1 2 3))"), L"(1 9 3)");
    EXPECT_EQ(Run(L"(car 5)"), L"; error: bad argument type: consp 5\n");
    EXPECT_EQ(Run(L"(length '(1 . 2))"), L"; error: bad list: (1 . 2)\n");
}

TEST_F(LispTest, Texts) {
    EXPECT_EQ(Run(L"(strcat \"a\" \"b\" \"c\")"), L"\"abc\"");
    EXPECT_EQ(Run(L"(strcase \"aB\")"), L"\"AB\"");
    EXPECT_EQ(Run(L"(strcase \"aB\" T)"), L"\"ab\"");
    EXPECT_EQ(Run(L"(substr \"hello\" 2 3)"), L"\"ell\"");
    EXPECT_EQ(Run(L"(substr \"hello\" 4)"), L"\"lo\"");
    EXPECT_EQ(Run(L"(substr \"hello\" 9)"), L"\"\"");
    EXPECT_EQ(Run(L"(substr \"hello\" 0)"), L"; error: bad argument value: positive 0\n");
    EXPECT_EQ(Run(L"(strlen \"abc\")"), L"3");
    EXPECT_EQ(Run(L"(itoa 5)"), L"\"5\"");
    EXPECT_EQ(Run(L"(atoi \"12abc\")"), L"12");
    EXPECT_EQ(Run(L"(atoi \"abc\")"), L"0");
    EXPECT_EQ(Run(L"(atoi \"99999999999\")"), L"2147483647");
    EXPECT_EQ(Run(L"(atof \"1.5\")"), L"1.5");
    EXPECT_EQ(Run(L"(rtos 1.5 2 2)"), L"\"1.50\"");
    EXPECT_EQ(Run(L"(ascii \"A\")"), L"65");
    EXPECT_EQ(Run(L"(chr 65)"), L"\"A\"");
    EXPECT_EQ(Run(L"(read \"(1 2)\")"), L"(1 2)");
    EXPECT_EQ(Run(L"(strcat \"a\" 5)"), L"; error: bad argument type: stringp 5\n");
}

TEST_F(LispTest, Printing) {
    Run(L"(princ \"a\\nb\") (prin1 \"c\") (print 5) (terpri) (prompt \"p\")");
    EXPECT_EQ(m_around.printed, L"a\nb\"c\"\n5 \np");
    EXPECT_EQ(Run(L"(princ)"), L"");
}

TEST_F(LispTest, Types) {
    EXPECT_EQ(Run(L"(mapcar 'type (list 1 1.0 \"a\" 'a '(1) car f nil))"),
              L"(INT REAL STR SYM LIST SUBR nil nil)");
    EXPECT_EQ(Run(L"(type (lambda (x) x))"), L"USUBR");
}

TEST_F(LispTest, Constants_AreProtected) {
    EXPECT_EQ(Run(L"(setq T 5)"), L"; error: assignment to protected symbol: T\n");
    EXPECT_EQ(Run(L"(setq pi 3)"), L"; error: assignment to protected symbol: PI\n");
    EXPECT_EQ(Run(L"T"), L"T");
}

TEST_F(LispTest, Variables_OfTheHost) {
    m_around.variables[L"SNAPSTYL"] = 1;
    EXPECT_EQ(Run(L"(getvar \"SNAPSTYL\")"), L"1");
    EXPECT_EQ(Run(L"(getvar \"NONE\")"), L"nil");
    EXPECT_EQ(Run(L"(setvar \"SNAPSTYL\" 0)"), L"0");
    EXPECT_EQ(Run(L"(getvar \"SNAPSTYL\")"), L"0");
    EXPECT_EQ(Run(L"(setvar \"NONE\" 0)"), L"; error: variable setting rejected: NONE 0\n");
}

TEST_F(LispTest, Environment_OfTheHost) {
    EXPECT_EQ(Run(L"(getenv \"A\")"), L"nil");
    EXPECT_EQ(Run(L"(setenv \"A\" \"b\")"), L"\"b\"");
    EXPECT_EQ(Run(L"(getenv \"A\")"), L"\"b\"");
}

TEST_F(LispTest, Load_EvaluatesTheFile) {
    m_around.files[L"start.lsp"] = L"; start-up\n(setq loaded 1)\n#| not a comment here |#\n";
    m_around.files[L"good.lsp"] = L"(setq loaded 2) ;| block\ncomment |; 'done";
    EXPECT_EQ(Run(L"(load \"good\")"), L"DONE");
    EXPECT_EQ(Run(L"loaded"), L"2");
    EXPECT_EQ(Run(L"(load \"missing\")"), L"; error: LOAD failed: \"missing\"\n");
    EXPECT_EQ(Run(L"(load \"missing\" \"no\")"), L"\"no\"");
    EXPECT_EQ(Run(L"(findfile \"good.lsp\")"), L"\"good.lsp\"");
    EXPECT_EQ(Run(L"(findfile \"none.lsp\")"), L"nil");
}

TEST_F(LispTest, Command_PassesItsInput) {
    EXPECT_EQ(Run(L"(command \"LINE\" '(0 0) \"5,5\" 7 \"\")"), L"nil");
    EXPECT_EQ(m_around.commands,
              (std::vector<std::vector<std::wstring>>{{L"LINE", L"0,0", L"5,5", L"7", L""}}));
    m_around.commandsWork = false;
    EXPECT_EQ(Run(L"(command \"X\")"), L"; error: Function cancelled\n");
}

TEST_F(LispTest, Applications_AreLoadedAndUnloaded) {
    EXPECT_EQ(Run(L"(arxload \"good.arx\")"), L"\"good.arx\"");
    EXPECT_EQ(Run(L"(arxload \"bad.arx\" nil)"), L"nil");
    EXPECT_EQ(Run(L"(arxload \"bad.arx\")"), L"; error: ARXLOAD failed\n");
    EXPECT_EQ(Run(L"(arxunload \"good.arx\")"), L"\"good.arx\"");
}

TEST_F(LispTest, DefinedFunctions_AreCalledAndTakenAway) {
    m_lisp.Define(L"kv2dmenu_init", 0, -1, [](Interpreter&, const Arguments& a) {
        return Value(static_cast<std::int32_t>(a.size()));
    });
    EXPECT_EQ(Run(L"(kv2dMenu_Init 2 T)"), L"2");
    m_lisp.Undefine(L"KV2DMENU_INIT");
    EXPECT_EQ(Run(L"(kv2dMenu_Init 2 T)"), L"; error: no function definition: KV2DMENU_INIT\n");
    m_lisp.Undefine(L"KV2DMENU_INIT");
}

TEST_F(LispTest, Undefine_LeavesAUsersOwnDefinition) {
    m_lisp.Define(L"f", 0, 0, [](Interpreter&, const Arguments&) { return Value(1); });
    Run(L"(defun f () 2)");
    m_lisp.Undefine(L"f");
    EXPECT_EQ(Run(L"(f)"), L"2");
}

TEST_F(LispTest, ErrorHandlerOfTheProgram_IsCalled) {
    Run(L"(defun *error* (msg) (princ (strcat \"caught \" msg)))");
    EXPECT_EQ(Run(L"(/ 1 0)"), L"caught divide by zero");
    Run(L"(defun *error* (msg) (/ 1 0))");
    EXPECT_EQ(Run(L"(car 5)"), L"; error: divide by zero\n; error: bad argument type: consp 5\n");
}

TEST_F(LispTest, AnErrorEndsTheText) {
    EXPECT_EQ(Run(L"(setq a 1) (/ 1 0) (setq a 2)"), L"; error: divide by zero\n");
    EXPECT_EQ(Run(L"a"), L"1");
}

TEST_F(LispTest, MalformedInput_IsAnError) {
    EXPECT_EQ(Run(L"(1 2"), L"; error: malformed list on input\n");
    EXPECT_EQ(Run(L")"), L"; error: extra right paren on input\n");
    EXPECT_EQ(Run(L"\"abc"), L"; error: malformed string on input\n");
    EXPECT_EQ(Run(L"\"abc\\"), L"; error: malformed string on input\n");
    EXPECT_EQ(Run(L"(1 . )"), L"; error: misplaced dot on input\n");
    EXPECT_EQ(Run(L"(. 1)"), L"; error: misplaced dot on input\n");
    EXPECT_EQ(Run(L"(1 . 2 3)"), L"; error: misplaced dot on input\n");
    EXPECT_EQ(Run(L"'"), L"; error: misplaced quote on input\n");
    EXPECT_EQ(Run(L"(')"), L"; error: misplaced quote on input\n");
    EXPECT_EQ(Run(std::wstring(5000, L'1')), L"; error: number too long on input\n");
    EXPECT_EQ(Run(L""), L"nil");
    EXPECT_EQ(Run(L"; only a comment"), L"nil");
    EXPECT_EQ(Run(L"(setq)"), L"nil");
    EXPECT_EQ(Run(L"(setq a)"), L"; error: too few arguments\n");
    EXPECT_EQ(Run(L"(setq 5 1)"), L"; error: syntax error\n");
    EXPECT_EQ(Run(L"(quote)"), L"; error: too few arguments\n");
    EXPECT_EQ(Run(L"(if)"), L"; error: too few arguments\n");
    EXPECT_EQ(Run(L"(defun)"), L"; error: too few arguments\n");
    EXPECT_EQ(Run(L"(+ . 5)"), L"; error: bad list: 5\n");
}

TEST_F(LispTest, DeepNesting_IsAnErrorNotACrash) {
    EXPECT_EQ(Run(std::wstring(100000, L'(')), L"; error: too deeply nested on input\n");
    EXPECT_EQ(Run(std::wstring(100000, L'\'') + L"a"), L"; error: too deeply nested on input\n");
    EXPECT_EQ(Run(L"(defun f () (f)) (f)"), L"; error: stack limit reached\n");
    EXPECT_EQ(Run(L"(defun f (n) (+ 1 (f n))) (f 1)"), L"; error: stack limit reached\n");
    EXPECT_EQ(Run(L"(defun f (n) (mapcar 'f '(1))) (f 1)"), L"; error: stack limit reached\n");
    EXPECT_EQ(Run(L"(setq f 'f) (f)"), L"; error: bad function: F\n");
}

TEST_F(LispTest, RecursionOfFiveHundred_Works) {
    EXPECT_EQ(Run(L"(defun count (n) (if (= n 0) 0 (1+ (count (1- n))))) (count 100)"), L"100");
}

TEST_F(LispTest, LongAndDeepLists_EndWithoutRecursion) {
    EXPECT_EQ(Run(L"(setq a nil) (repeat 200000 (setq a (cons 1 a))) (length a)"), L"200000");
    EXPECT_EQ(Run(L"(setq a nil) (repeat 200000 (setq a (list a))) (setq a 5)"), L"5");
}

TEST_F(LispTest, DeepList_PrintsWithDots) {
    const std::wstring text = Run(L"(setq a nil) (repeat 5000 (setq a (list a))) a");
    EXPECT_NE(text.find(L"..."), std::wstring::npos);
    EXPECT_EQ(Run(L"(equal a a)"), L"T");
}

TEST_F(LispTest, AnEndlessLoop_EndsWhenCancelled) {
    m_around.cancelled = true;
    EXPECT_EQ(Run(L"(while T (+ 1 1))"), L"; error: Function cancelled\n");
}

TEST_F(LispTest, RunawayText_IsAnError) {
    EXPECT_EQ(Run(L"(setq s \"x\") (while T (setq s (strcat s s)))"), L"; error: string too long\n");
}

TEST_F(LispTest, Exit_EndsTheEvaluation) {
    EXPECT_EQ(Run(L"(exit)"), L"; error: quit / exit abort\n");
}

TEST(Completeness, CountsParenthesesOutsideTexts) {
    EXPECT_EQ(CompletenessOf(L"(a (b)"), Completeness::kOpen);
    EXPECT_EQ(CompletenessOf(L"(a \")\""), Completeness::kOpen);
    EXPECT_EQ(CompletenessOf(L"(a \"\\\")"), Completeness::kOpen);
    EXPECT_EQ(CompletenessOf(L"(a)"), Completeness::kComplete);
}

}  // namespace
}  // namespace workbench::test
