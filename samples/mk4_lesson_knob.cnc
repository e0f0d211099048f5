Lesson knob, dia 20: what the drawing shows when comments command it
Material: aluminium bar dia 22, 35 mm out of the chuck, faced
Tools: T1 copying tool right
Zero point: spindle axis, front face. Start point: dia 24, Z +5
Open the drawing, choose the program window and watch: the comments set the pace, the colours and the stops.
Send it to the machine as it stands: none of these words is ever sent, and the lathe does not stop for them.
%
    N` G`   X `    Z `  F`  H 
    00 92  2400    500          Start point
    01M03                       Spindle on
    02 00  2000    100          cmdINTERVAL 1 a tenth of a second for each move
    03 01  2000 - 2500  80      cmdCOLOR Red the size of the head
    04 00  2200 - 2500          Off the work
    05 00  2200 - 1200          cmdSKIP a stop on the way, left out here
    06 00  2200    100          cmdWAIT the blank: a click or Enter goes on
    07 00  1600    100          In front of the neck
    08 01  1600 -  800  80      cmdINTERVAL 2 half a second: the neck
    09 02  1800 -  900  60      cmdRADIUS R1, its radius is always shown
    10 03  2000 - 1000  60      cmdNORADIUS R1, its radius is never shown
    11 00  2400 - 1000          cmdINTERVAL 3 a second: clear of the work
    12 00  2400 - 1200          cmdNOCHECK beside the groove
    13 25             L 19      cmdNORENUM the groove; nobody renumbers this
    14 90                       cmdSTEP a press of Step for each line
    15 00  2400 - 1600          Beside the second groove
    16 25             L 19      cmdRUN the second groove, at full speed
    17M05                       cmdSTOP only the drawing ends here
    18M30                       End of program
    19 91                       Groove 1 mm deep, from where the tool stands
    20 01 - 300     00  30      Plunge
    21 00   300     00          Out
    22M17                       Back
   M
