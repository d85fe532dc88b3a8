"""Each check of strict_check.py finds the fault that it is there for."""
import unittest

from strict_check import strict_faults

SOUND = """0 SECTION|2 HEADER|9 $ACADVER|1 AC1015|9 $HANDSEED|5 FF|0 ENDSEC
0 SECTION|2 CLASSES|0 ENDSEC
0 SECTION|2 TABLES
0 TABLE|2 APPID|5 9|330 0|100 AcDbSymbolTable|70 1
0 APPID|5 12|330 9|100 AcDbSymbolTableRecord|100 AcDbRegAppTableRecord|2 ACAD|70 0
0 ENDTAB
0 TABLE|2 BLOCK_RECORD|5 1|330 0|100 AcDbSymbolTable|70 1
0 BLOCK_RECORD|5 1F|330 1|100 AcDbSymbolTableRecord|2 *Model_Space
0 ENDTAB|0 ENDSEC
0 SECTION|2 BLOCKS|0 ENDSEC
0 SECTION|2 ENTITIES
0 INSERT|5 30|102 {ACAD_REACTORS|330 1F|102 }|330 1F|100 AcDbEntity|66 1|1001 ACAD|1002 {|1000 text \\U+00D8|1002 }
0 ATTRIB|5 31|330 30|100 AcDbEntity
0 SEQEND|5 32|330 30|100 AcDbEntity
0 ENDSEC
0 SECTION|2 OBJECTS
0 DICTIONARY|5 C|330 0|100 AcDbDictionary|3 SELF|350 C
0 ENDSEC|0 EOF"""


def faults_of(text):
    groups = text.replace("\n", "|").split("|")
    return strict_faults("".join(group.replace(" ", "\r\n", 1) + "\r\n" for group in groups).encode("latin-1"))


class StrictCheck(unittest.TestCase):
    def test_a_sound_file_has_no_fault(self):
        self.assertEqual(faults_of(SOUND), [])

    def test_each_fault_is_found(self):
        for what, old, new in [
                ("control character", "text", "te\txt"),
                ("long line", "text", "x" * 2100),
                ("escape in lower case", "00D8", "00d8"),
                ("sections", "2 OBJECTS", "2 OTHERS"),
                ("end mark", "|0 EOF", ""),
                ("missing handle", "5 31|", ""),
                ("handle twice", "5 31|", "5 30|"),
                ("handle seed", "5 FF", "5 30"),
                ("missing owner", "0 ATTRIB|5 31|330 30", "0 ATTRIB|5 31"),
                ("owner zero", "0 ATTRIB|5 31|330 30", "0 ATTRIB|5 31|330 0"),
                ("owner that is not there", "0 ATTRIB|5 31|330 30", "0 ATTRIB|5 31|330 AA"),
                ("reactor that is not there", "{ACAD_REACTORS|330 1F", "{ACAD_REACTORS|330 AA"),
                ("dictionary entry", "350 C", "350 AA"),
                ("name that is not registered", "1001 ACAD", "1001 OTHER"),
                ("brace that is open", "|1002 }", ""),
                ("brace that is closed", "1002 {|", ""),
                ("brace that is none", "1002 {", "1002 ["),
                ("long text in extended data", "text", "x" * 250),
                ("much extended data", "1000 text", "|".join(["1000 " + "x" * 250] * 70) + "|1000 text"),
                ("group in extended data", "1000 text", "40 text"),
                ("list that is open", "|102 }", ""),
                ("sequence without end", "0 SEQEND|5 32|330 30|100 AcDbEntity\n", ""),
                ("attribute without reference", "66 1", "66 0"),
                ("count of a table", "AcDbSymbolTable|70 1", "AcDbSymbolTable|70 2")]:
            with self.subTest(what):
                self.assertIn(old, SOUND)
                self.assertNotEqual(faults_of(SOUND.replace(old, new)), [])


if __name__ == "__main__":
    unittest.main()
