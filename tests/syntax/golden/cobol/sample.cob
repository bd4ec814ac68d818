       IDENTIFICATION DIVISION.
       PROGRAM-ID. HELLO.
      * comment line
       PROCEDURE DIVISION.
       MAIN-PARA.
           DISPLAY "HELLO, WORLD".
           MOVE 5 TO WS-COUNT.
           STOP RUN.
