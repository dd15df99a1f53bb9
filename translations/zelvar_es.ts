<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>ApplyText</name>
    <message>
        <source>process failure: the servo could not carry it out; reboot it and try again</source>
        <translation>fallo del proceso: el servo no pudo ejecutarlo; reinícielo e inténtelo de nuevo</translation>
    </message>
    <message>
        <source>instruction error: the servo does not know this instruction; is it another model?</source>
        <translation>error de instrucción: el servo no conoce esta instrucción; ¿es otro modelo?</translation>
    </message>
    <message>
        <source>checksum error: the line garbles packets; check cable and supply</source>
        <translation>error de suma de verificación: la línea altera los paquetes; compruebe el cable y la alimentación</translation>
    </message>
    <message>
        <source>data range error: a value is outside what the servo takes; compare each with its range</source>
        <translation>error de rango de datos: un valor está fuera de lo que acepta el servo; compare cada uno con su rango</translation>
    </message>
    <message>
        <source>data length error: the servo takes no block of this length; is it another model?</source>
        <translation>error de longitud de datos: el servo no acepta un bloque de esta longitud; ¿es otro modelo?</translation>
    </message>
    <message>
        <source>data limit error: a value is beyond one of the servo&apos;s limits; change the limit first</source>
        <translation>error de límite de datos: un valor supera uno de los límites del servo; cambie primero el límite</translation>
    </message>
    <message>
        <source>access error: turn the motor off first</source>
        <translation>error de acceso: apague primero el motor</translation>
    </message>
    <message>
        <source>on</source>
        <translation>encendido</translation>
    </message>
    <message>
        <source>off</source>
        <translation>apagado</translation>
    </message>
    <message>
        <source>applied: %1 %2</source>
        <translation>aplicado: %1 %2</translation>
    </message>
    <message>
        <source>applied: %1 values</source>
        <translation>aplicados: %1 valores</translation>
    </message>
    <message>
        <source>Field</source>
        <translation>Campo</translation>
    </message>
    <message>
        <source>Wanted</source>
        <translation>Deseado</translation>
    </message>
    <message>
        <source>The servo has</source>
        <translation>El servo tiene</translation>
    </message>
    <message>
        <source>not sent before the connection ended: %1</source>
        <translation>no enviado antes del fin de la conexión: %1</translation>
    </message>
    <message>
        <source>error number %1, which the servo&apos;s family does not have</source>
        <translation>número de error %1, que la familia del servo no tiene</translation>
    </message>
    <message>
        <source>The servo has not answered since, so that what it has is not known. Check its supply and the cable; what it has is shown as soon as it answers.</source>
        <translation>El servo no ha respondido desde entonces, por lo que no se sabe qué tiene. Compruebe su alimentación y el cable; en cuanto responda se mostrará lo que tiene.</translation>
    </message>
    <message>
        <source>The servo refused it: %1.</source>
        <translation>El servo lo rechazó: %1.</translation>
    </message>
    <message>
        <source>The servo acknowledged the values and did not keep those above. Read them again, and check whether something else changes them.</source>
        <translation>El servo confirmó los valores y no conservó los anteriores. Léalos de nuevo y compruebe si otra cosa los cambia.</translation>
    </message>
    <message>
        <source>The servo did not acknowledge the values. Check the cable and apply them again.</source>
        <translation>El servo no confirmó los valores. Compruebe el cable y aplíquelos de nuevo.</translation>
    </message>
    <message>
        <source>not known</source>
        <translation>no se sabe</translation>
    </message>
    <message>
        <source>%1 values</source>
        <translation>%1 valores</translation>
    </message>
    <message>
        <source>not read back before the connection ended: %1</source>
        <translation>no releído antes del fin de la conexión: %1</translation>
    </message>
    <message>
        <source>applied: the servo had these values already</source>
        <translation>aplicado: el servo ya tenía estos valores</translation>
    </message>
    <message>
        <source>changed and not applied before the connection ended: %1</source>
        <translation>cambiado y no aplicado antes de terminar la conexión: %1</translation>
    </message>
    <message>
        <source>none</source>
        <translation>ninguno</translation>
    </message>
</context>
<context>
    <name>Backups</name>
    <message>
        <source>Nothing was written: the servo refuses to be read.</source>
        <translation>No se ha escrito nada: el servo rechaza la lectura.</translation>
    </message>
    <message>
        <source>Nothing was written: by now another servo answers, of another model.</source>
        <translation>No se ha escrito nada: ahora responde otro servo, de otro modelo.</translation>
    </message>
    <message>
        <source>Nothing was written: the motor is on.</source>
        <translation>No se ha escrito nada: el motor está encendido.</translation>
    </message>
    <message>
        <source>Nothing was restored: the motor could not be switched off.</source>
        <translation>No se ha restaurado nada: no se ha podido apagar el motor.</translation>
    </message>
    <message>
        <source>Nothing was written: the servo&apos;s lock is on, so that it keeps its parameters. Switch its supply off and on.</source>
        <translation>No se ha escrito nada: el bloqueo del servo está activado, por lo que conserva sus parámetros. Apague y encienda su alimentación.</translation>
    </message>
    <message>
        <source>Nothing was written: with the status return level 0 the servo could not be read any more, so that nothing would be proved.</source>
        <translation>No se ha escrito nada: con el nivel de respuesta 0 el servo ya no se podría leer, así que nada quedaría comprobado.</translation>
    </message>
    <message>
        <source>&amp;Back up…</source>
        <translation>&amp;Guardar copia…</translation>
    </message>
    <message>
        <source>&amp;Compare with…</source>
        <translation>&amp;Comparar con…</translation>
    </message>
    <message>
        <source>&amp;Restore…</source>
        <translation>&amp;Restaurar…</translation>
    </message>
    <message>
        <source>Connect to a servo first.</source>
        <translation>Conecte primero un servo.</translation>
    </message>
    <message>
        <source>The servo does not answer any more.</source>
        <translation>El servo ya no responde.</translation>
    </message>
    <message>
        <source>Back up</source>
        <translation>Guardar copia</translation>
    </message>
    <message>
        <source>Not backed up</source>
        <translation>Copia no guardada</translation>
    </message>
    <message>
        <source>Compare with</source>
        <translation>Comparar con</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Restaurar</translation>
    </message>
    <message>
        <source>Not opened</source>
        <translation>No abierto</translation>
    </message>
    <message>
        <source>Servo %1 on %2</source>
        <translation>Servo %1 en %2</translation>
    </message>
    <message>
        <source>These are the parameters of servo %1.</source>
        <translation>Son los parámetros del servo %1.</translation>
    </message>
    <message>
        <source>They are from firmware %1, but the servo has firmware %2.</source>
        <translation>Son del firmware %1, pero el servo tiene el firmware %2.</translation>
    </message>
    <message>
        <source>Another model</source>
        <translation>Otro modelo</translation>
    </message>
    <message>
        <source>%1 has the parameters of a %2, model %3. The servo is a %4, model %5.</source>
        <translation>%1 tiene los parámetros de un %2, modelo %3. El servo es un %4, modelo %5.</translation>
    </message>
    <message>
        <source>What was written is not proved; the same restore again does the rest.</source>
        <translation>Lo escrito no está comprobado; la misma restauración otra vez hace el resto.</translation>
    </message>
    <message>
        <source>Nothing was written.</source>
        <translation>No se ha escrito nada.</translation>
    </message>
    <message>
        <source>Nothing was written: another servo has the id %1 at %2 baud. Give that one another id first.</source>
        <translation>No se ha escrito nada: otro servo tiene el id %1 a %2 baudios. Dé primero otro id a ese.</translation>
    </message>
    <message>
        <source>The servo does not answer.</source>
        <translation>El servo no responde.</translation>
    </message>
    <message>
        <source>The port was lost.</source>
        <translation>Se ha perdido el puerto.</translation>
    </message>
    <message>
        <source>Stopped.</source>
        <translation>Detenido.</translation>
    </message>
    <message>
        <source>not kept in the history: %1</source>
        <translation>no guardado en el historial: %1</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>Antes</translation>
    </message>
    <message>
        <source>Re&amp;place a servo…</source>
        <translation>R&amp;eemplazar un servo…</translation>
    </message>
    <message>
        <source>&amp;Keep the tuned gains…</source>
        <translation>Con&amp;servar las ganancias ajustadas…</translation>
    </message>
    <message>
        <source>Histor&amp;y…</source>
        <translation>&amp;Historial…</translation>
    </message>
    <message>
        <source>A restart gives the servo its stored gains and profiles again. To store those in use: menu Servo, Keep the tuned gains.</source>
        <translation>Un reinicio devuelve al servo sus ganancias y perfiles guardados. Para guardar los que están en uso: menú Servo, Conservar las ganancias ajustadas.</translation>
    </message>
    <message>
        <source>%1: %2 in use, %3 stored</source>
        <translation>%1: %2 en uso, %3 guardado</translation>
    </message>
    <message>
        <source>gains not kept</source>
        <translation>ganancias no guardadas</translation>
    </message>
    <message>
        <source>The history has other values for this id. Another servo may have it now, or what was changed without being stored was lost with the supply.</source>
        <translation>El historial tiene otros valores para este id. Quizá ahora lo tenga otro servo, o lo cambiado sin guardar se perdió con la alimentación.</translation>
    </message>
    <message>
        <source>Compare</source>
        <translation>Comparar</translation>
    </message>
    <message>
        <source>The gains and profiles in use are the stored ones.</source>
        <translation>Las ganancias y perfiles en uso son los guardados.</translation>
    </message>
    <message>
        <source>backed up: %1</source>
        <translation>copia guardada: %1</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Archivo</translation>
    </message>
    <message>
        <source>History</source>
        <translation>Historial</translation>
    </message>
    <message>
        <source>the gains and profiles in use</source>
        <translation>las ganancias y perfiles en uso</translation>
    </message>
    <message>
        <source>In use</source>
        <translation>En uso</translation>
    </message>
    <message>
        <source>what servo %1 had: %2</source>
        <translation>lo que tenía el servo %1: %2</translation>
    </message>
    <message>
        <source>Nothing was written: by now the servo has other values than those shown here. Close this and compare again.</source>
        <translation>No se ha escrito nada: el servo tiene ahora otros valores que los que se muestran aquí. Cierre esto y compare de nuevo.</translation>
    </message>
    <message>
        <source>The file has %1 of the %2 fields that a servo keeps.</source>
        <translation>El archivo tiene %1 de los %2 campos que conserva un servo.</translation>
    </message>
    <message>
        <source>By now the servo may have the id %1 at %2 baud.</source>
        <translation>Puede que el servo tenga ya el id %1 a %2 baudios.</translation>
    </message>
</context>
<context>
    <name>EditView</name>
    <message>
        <source>Realtime information</source>
        <translation>Información en tiempo real</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Posición</translation>
    </message>
    <message>
        <source>Angular velocity</source>
        <translation>Velocidad angular</translation>
    </message>
    <message>
        <source>Torque</source>
        <translation>Par</translation>
    </message>
    <message>
        <source>Voltage</source>
        <translation>Tensión</translation>
    </message>
    <message>
        <source>Phase current (Iq)</source>
        <translation>Corriente de fase (Iq)</translation>
    </message>
    <message>
        <source>Temperature</source>
        <translation>Temperatura</translation>
    </message>
    <message>
        <source>Is moving:</source>
        <translation>En movimiento:</translation>
    </message>
    <message>
        <source>Version information</source>
        <translation>Información de versión</translation>
    </message>
    <message>
        <source>Model number:</source>
        <translation>Número de modelo:</translation>
    </message>
    <message>
        <source>Firmware version</source>
        <translation>Versión de firmware:</translation>
    </message>
    <message>
        <source>Hardware error status</source>
        <translation>Errores de hardware</translation>
    </message>
    <message>
        <source>Overload error</source>
        <translation>Sobrecarga</translation>
    </message>
    <message>
        <source>Overheating error</source>
        <translation>Sobrecalentamiento</translation>
    </message>
    <message>
        <source>Angle limit error</source>
        <translation>Límite de ángulo</translation>
    </message>
    <message>
        <source>Input voltage error</source>
        <translation>Tensión de entrada</translation>
    </message>
    <message>
        <source>Encoder error</source>
        <translation>Codificador</translation>
    </message>
    <message>
        <source>Hall sensor error</source>
        <translation>Sensor Hall</translation>
    </message>
    <message>
        <source>Status packet information</source>
        <translation>Paquete de estado</translation>
    </message>
    <message>
        <source>Process failure</source>
        <translation>Fallo de proceso</translation>
    </message>
    <message>
        <source>Instruction error</source>
        <translation>Error de instrucción</translation>
    </message>
    <message>
        <source>Checksum error</source>
        <translation>Error de suma de control</translation>
    </message>
    <message>
        <source>Data range error</source>
        <translation>Error de rango de datos</translation>
    </message>
    <message>
        <source>Data length error</source>
        <translation>Error de longitud</translation>
    </message>
    <message>
        <source>Data limit error</source>
        <translation>Error de límite de datos</translation>
    </message>
    <message>
        <source>Access error</source>
        <translation>Error de acceso</translation>
    </message>
    <message>
        <source>Alert</source>
        <translation>Alerta</translation>
    </message>
    <message>
        <source>Parameters (non-volatile)</source>
        <translation>Parámetros (no volátiles)</translation>
    </message>
    <message>
        <source>Baud rate:</source>
        <translation>Velocidad en baudios:</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Acknowledge response time</source>
        <translation>Tiempo de respuesta</translation>
    </message>
    <message>
        <source>Operating mode:</source>
        <translation>Modo de operación:</translation>
    </message>
    <message>
        <source>Wheel</source>
        <translation>Rueda</translation>
    </message>
    <message>
        <source>Joint</source>
        <translation>Articulación</translation>
    </message>
    <message>
        <source>Multi-turn</source>
        <translation>Multivuelta</translation>
    </message>
    <message>
        <source>Stepper</source>
        <translation>Paso a paso</translation>
    </message>
    <message>
        <source>Input mode:</source>
        <translation>Modo de entrada:</translation>
    </message>
    <message>
        <source>Trajectory</source>
        <translation>Trayectoria</translation>
    </message>
    <message>
        <source>Limits</source>
        <translation>Límites</translation>
    </message>
    <message>
        <source>Clockwise angle limit</source>
        <translation>Límite horario</translation>
    </message>
    <message>
        <source>Counter-clockwise angle limit</source>
        <translation>Límite antihorario</translation>
    </message>
    <message>
        <source>Temperature limit</source>
        <translation>Límite de temperatura</translation>
    </message>
    <message>
        <source>Minimum voltage</source>
        <translation>Tensión mínima</translation>
    </message>
    <message>
        <source>Maximum voltage</source>
        <translation>Tensión máxima</translation>
    </message>
    <message>
        <source>Phase current (Iq) limit:</source>
        <translation>Límite de corriente (Iq)</translation>
    </message>
    <message>
        <source>Angular velocity limit</source>
        <translation>Límite de velocidad</translation>
    </message>
    <message>
        <source>Acceleration limit</source>
        <translation>Límite de aceleración</translation>
    </message>
    <message>
        <source>Adjustments</source>
        <translation>Ajustes</translation>
    </message>
    <message>
        <source>Home position offset</source>
        <translation>Desfase del origen</translation>
    </message>
    <message>
        <source>Moving threshold</source>
        <translation>Umbral de movimiento</translation>
    </message>
    <message>
        <source>Default control parameters</source>
        <translation>Control predeterminado</translation>
    </message>
    <message>
        <source>Position proportional term:</source>
        <translation>Proporcional de posición:</translation>
    </message>
    <message>
        <source>Velocity feedforward term:</source>
        <translation>Prealim. de velocidad:</translation>
    </message>
    <message>
        <source>Velocity proportional term:</source>
        <translation>Proporcional de velocidad:</translation>
    </message>
    <message>
        <source>Velocity integral term:</source>
        <translation>Integral de velocidad:</translation>
    </message>
    <message>
        <source>Current feedforward term:</source>
        <translation>Prealim. de corriente:</translation>
    </message>
    <message>
        <source>Angular velocity profile:</source>
        <translation>Perfil de velocidad</translation>
    </message>
    <message>
        <source>Acceleration profile:</source>
        <translation>Perfil de aceleración</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Editar</translation>
    </message>
    <message>
        <source>Parameters (volatile)</source>
        <translation>Parámetros (volátiles)</translation>
    </message>
    <message>
        <source>Target position</source>
        <translation>Posición objetivo</translation>
    </message>
    <message>
        <source>Proportional term:</source>
        <translation>Término proporcional:</translation>
    </message>
    <message>
        <source>Target velocity</source>
        <translation>Velocidad objetivo</translation>
    </message>
    <message>
        <source>Direction:</source>
        <translation>Sentido:</translation>
    </message>
    <message>
        <source>Counter-clockwise</source>
        <translation>Antihorario</translation>
    </message>
    <message>
        <source>Clockwise</source>
        <translation>Horario</translation>
    </message>
    <message>
        <source>Integral term:</source>
        <translation>Término integral:</translation>
    </message>
    <message>
        <source>Target torque</source>
        <translation>Par objetivo</translation>
    </message>
    <message>
        <source>Profile</source>
        <translation>Perfil</translation>
    </message>
    <message>
        <source>Miscellaneous</source>
        <translation>Varios</translation>
    </message>
    <message>
        <source>Enable motor</source>
        <translation>Activar motor</translation>
    </message>
    <message>
        <source>Pending shadow instruction:</source>
        <translation>Instrucción pendiente:</translation>
    </message>
    <message>
        <source>Unit fields</source>
        <translation>Magnitudes físicas</translation>
    </message>
    <message>
        <source>What the servo is doing now, read from it again at each polling interval. The values are shown in the units chosen in the settings; nothing here can be edited.</source>
        <translation>Lo que el servo está haciendo ahora, leído de él en cada intervalo de consulta. Los valores se muestran en las unidades elegidas en la configuración; aquí no se puede editar nada.</translation>
    </message>
    <message>
        <source>Which servo is connected: its model number and the version of the firmware that it runs.</source>
        <translation>Qué servo está conectado: su número de modelo y la versión del firmware que ejecuta.</translation>
    </message>
    <message>
        <source>Faults that the servo has found in itself. A box is checked for as long as the servo reports the fault.</source>
        <translation>Fallos que el servo ha detectado en sí mismo. Una casilla está marcada mientras el servo notifique el fallo.</translation>
    </message>
    <message>
        <source>What the servo says with each of its answers. A box turns red when the servo did not understand what it was told, or could not carry it out.</source>
        <translation>Lo que el servo comunica con cada una de sus respuestas. Una casilla se vuelve roja cuando el servo no ha entendido una instrucción o no ha podido ejecutarla.</translation>
    </message>
    <message>
        <source>Settings that the servo keeps while it is without power. Press Edit, change them, and press Apply to write what you changed to the servo, or Cancel to leave it as it is. They can be edited only while the motor is not enabled. A new ID or baud rate holds at once: disconnect and connect again to reach the servo.</source>
        <translation>Ajustes que el servo conserva sin alimentación. Pulse «Editar», cámbielos y pulse «Aplicar» para escribir lo cambiado en el servo, o «Cancelar» para dejarlo como está. Solo se pueden editar mientras el motor no está activado. Un nuevo ID o una nueva velocidad rigen de inmediato: desconecte y vuelva a conectar para acceder al servo.</translation>
    </message>
    <message>
        <source>Targets and control settings that the servo follows until it is switched off; it then starts with its defaults again. Press Edit, change them, and press Apply to write what you changed to the servo, or Cancel to leave it as it is. With the motor enabled, the servo moves as soon as they are applied.</source>
        <translation>Objetivos y parámetros de control que el servo sigue hasta que se apaga; después vuelve a empezar con sus valores predeterminados. Pulse «Editar», cámbielos y pulse «Aplicar» para escribir lo cambiado en el servo, o «Cancelar» para dejarlo como está. Con el motor activado, el servo se mueve en cuanto se aplican.</translation>
    </message>
    <message>
        <source>Proportional term of the position</source>
        <translation>Término proporcional de la posición</translation>
    </message>
    <message>
        <source>Direction of the velocity</source>
        <translation>Sentido de la velocidad</translation>
    </message>
    <message>
        <source>Proportional term of the velocity</source>
        <translation>Término proporcional de la velocidad</translation>
    </message>
    <message>
        <source>Direction of the torque</source>
        <translation>Sentido del par</translation>
    </message>
    <message>
        <source>The program knows the registers of this servo only in part: all that it cannot read stays grey and empty, and nothing can be edited. It can be found by a search and set back to its factory values.</source>
        <translation>El programa conoce solo en parte los registros de este servo: lo que no puede leer queda gris y vacío, y nada se puede editar. Se puede encontrar con una búsqueda y restablecer a sus valores de fábrica.</translation>
    </message>
</context>
<context>
    <name>FieldToolTip</name>
    <message>
        <source>Register %1, bit %2: %3</source>
        <translation>Registro %1, bit %2: %3</translation>
    </message>
    <message>
        <source>Register %1: %2</source>
        <translation>Registro %1: %2</translation>
    </message>
    <message>
        <source>Range: %1 to %2</source>
        <translation>Intervalo: de %1 a %2</translation>
    </message>
    <message>
        <source>Range: %1 to %2 %3</source>
        <translation>Intervalo: de %1 a %2 %3</translation>
    </message>
    <message>
        <source>This number is in rad/s, also where the caption tells another unit.</source>
        <translation>Este número está en rad/s, aunque la etiqueta indique otra unidad.</translation>
    </message>
    <message>
        <source>The load is more than the motor can move or hold. Take it off, then reboot the servo.</source>
        <translation>La carga es mayor de lo que el motor puede mover o sostener. Retírela y reinicie el servo.</translation>
    </message>
    <message>
        <source>The servo is hotter than its temperature limit. Turn the motor off and let it cool down.</source>
        <translation>El servo está más caliente que su límite de temperatura. Apague el motor y deje que se enfríe.</translation>
    </message>
    <message>
        <source>The position, or the target, is beyond the angle limits. Choose a target within them.</source>
        <translation>La posición o el objetivo está fuera de los límites de ángulo. Elija un objetivo dentro de ellos.</translation>
    </message>
    <message>
        <source>The supply voltage is below the minimum or above the maximum voltage. Check the supply and these two limits.</source>
        <translation>La tensión de alimentación está por debajo de la mínima o por encima de la máxima. Compruebe la alimentación y estos dos límites.</translation>
    </message>
    <message>
        <source>The position sensor fails. Switch the supply off and on; if the error comes back, the servo needs repair.</source>
        <translation>El sensor de posición falla. Desconecte y conecte la alimentación; si el error vuelve, el servo necesita reparación.</translation>
    </message>
    <message>
        <source>The motor&apos;s rotation sensor fails. Switch the supply off and on; if the error comes back, the servo needs repair.</source>
        <translation>El sensor de giro del motor falla. Desconecte y conecte la alimentación; si el error vuelve, el servo necesita reparación.</translation>
    </message>
    <message>
        <source>The servo could not carry out the last request. If this stays, reboot the servo.</source>
        <translation>El servo no pudo ejecutar la última petición. Si persiste, reinicie el servo.</translation>
    </message>
    <message>
        <source>The servo does not know the last instruction. Check that it is a model that this program supports.</source>
        <translation>El servo no conoce la última instrucción. Compruebe que es un modelo compatible con este programa.</translation>
    </message>
    <message>
        <source>The last request arrived damaged. Check cable and adapter, or choose a lower baud rate.</source>
        <translation>La última petición llegó dañada. Compruebe el cable y el adaptador, o elija una velocidad menor.</translation>
    </message>
    <message>
        <source>A value was beyond what its register takes. Check what was applied last.</source>
        <translation>Un valor estaba fuera de lo que admite su registro. Compruebe lo último que se aplicó.</translation>
    </message>
    <message>
        <source>The last request had more or fewer bytes than its registers. Check that the servo is a model that this program supports.</source>
        <translation>La última petición tenía más o menos bytes que sus registros. Compruebe que el servo es un modelo compatible con este programa.</translation>
    </message>
    <message>
        <source>A value was beyond a limit that is set in the servo. Check the limits among the non-volatile parameters.</source>
        <translation>Un valor superaba un límite ajustado en el servo. Compruebe los límites entre los parámetros no volátiles.</translation>
    </message>
    <message>
        <source>A register cannot be written, or not now. Turn the motor off before you change non-volatile parameters.</source>
        <translation>Un registro no se puede escribir, o no ahora. Apague el motor antes de cambiar parámetros no volátiles.</translation>
    </message>
    <message>
        <source>The servo reports a hardware error. The boxes under &quot;Hardware error status&quot; tell which.</source>
        <translation>El servo comunica un error de hardware. Las casillas de «Errores de hardware» indican cuál.</translation>
    </message>
    <message>
        <source>This limit is a torque: its number is in %1, not in the unit of the caption.</source>
        <translation>Este límite es un par: su número está en %1, no en la unidad de la etiqueta.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no number and is not applied.</source>
        <translation>«%1» no es un número y no se aplica.</translation>
    </message>
    <message>
        <source>%1 was beyond the range and has been corrected.</source>
        <translation>%1 estaba fuera del intervalo y se ha corregido.</translation>
    </message>
    <message>
        <source>Changed, not applied. The servo has: %1</source>
        <translation>Cambiado, sin aplicar. El servo tiene: %1</translation>
    </message>
    <message>
        <source>Changed, not applied. Applied before, and not read back from the servo yet: %1</source>
        <translation>Cambiado, sin aplicar. Aplicado antes y aún no leído de vuelta del servo: %1</translation>
    </message>
    <message>
        <source>Pending: this was applied and has not been read back from the servo yet.</source>
        <translation>Pendiente: esto se aplicó y aún no se ha leído de vuelta del servo.</translation>
    </message>
</context>
<context>
    <name>GroupKeys</name>
    <message>
        <source>%1 edits this group, %2 applies it, and %3 cancels.</source>
        <translation>%1 edita este grupo, %2 lo aplica y %3 cancela.</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
</context>
<context>
    <name>HistoryKeeper</name>
    <message>
        <source>1 parameter differs from %1: another servo?</source>
        <translation>1 parámetro difiere del %1: ¿otro servo?</translation>
    </message>
    <message numerus="yes">
        <source>%n parameters differ from %1: another servo?</source>
        <translation>
            <numerusform>%n parámetro difiere del %1: ¿otro servo?</numerusform>
            <numerusform>%n parámetros difieren del %1: ¿otro servo?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>LimitPairs</name>
    <message>
        <source>The minimum voltage is above the maximum voltage: no supply is right for the servo then.</source>
        <translation>La tensión mínima está por encima de la máxima: ninguna alimentación sería correcta para el servo.</translation>
    </message>
    <message>
        <source>The clockwise limit is above the counter-clockwise limit: no position is allowed then.</source>
        <translation>El límite horario está por encima del antihorario: ninguna posición estaría permitida.</translation>
    </message>
</context>
<context>
    <name>LinkLine</name>
    <message>
        <source>Stop motor (F8)</source>
        <translation>Parar el motor (F8)</translation>
    </message>
    <message>
        <source>Switches the motor off at once. That frees the shaft: what it carries may fall.</source>
        <translation>Apaga el motor de inmediato. Eso libera el eje: lo que sostiene puede caer.</translation>
    </message>
    <message>
        <source>User guide</source>
        <translation>Guía del usuario</translation>
    </message>
    <message>
        <source>Opens the user guide at what it says of the part of the window in use (F1).</source>
        <translation>Abre la guía del usuario por donde trata de la parte de la ventana en uso (F1).</translation>
    </message>
    <message>
        <source>Offer</source>
        <translation>Oferta</translation>
    </message>
</context>
<context>
    <name>LinkReporter</name>
    <message>
        <source>servo %1 · %2 baud · %3</source>
        <translation>servo %1 · %2 baudios · %3</translation>
    </message>
    <message>
        <source>No answer from servo %1 at %2 baud on %3</source>
        <translation>Sin respuesta del servo %1 a %2 baudios en %3</translation>
    </message>
    <message>
        <source>It is asked again each second. Check its supply, the cable, its address and its baud rate; Search finds servos at other ones.</source>
        <translation>Se le pregunta de nuevo cada segundo. Compruebe su alimentación, el cable, su dirección y su velocidad; la búsqueda encuentra servos con otras.</translation>
    </message>
    <message>
        <source>The port was closed by the Disconnect before: disconnect and connect again</source>
        <translation>El puerto se cerró por la desconexión anterior: desconecte y vuelva a conectar</translation>
    </message>
    <message>
        <source>%1 polls a second; of the last hundred %2 % answered at once, %3 % when asked again, %4 % lost</source>
        <translation>%1 consultas por segundo; de las últimas cien, %2 % respondidas en el acto, %3 % al repetir la pregunta, %4 % perdidas</translation>
    </message>
    <message>
        <source>weak link</source>
        <translation>enlace débil</translation>
    </message>
    <message>
        <source>not applied</source>
        <translation>no aplicado</translation>
    </message>
    <message>
        <source>Not applied</source>
        <translation>No aplicado</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Zelvar Servo Manager</source>
        <translation>Zelvar Servo Manager</translation>
    </message>
    <message>
        <source>Unit fields</source>
        <translation>Magnitudes físicas</translation>
    </message>
    <message>
        <source>Register fields</source>
        <translation>Registros</translation>
    </message>
    <message>
        <source>Connections</source>
        <translation>Conexiones</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Ayuda</translation>
    </message>
    <message>
        <source>toolBar</source>
        <translation>Barra de herramientas</translation>
    </message>
    <message>
        <source>C&amp;onnect</source>
        <translation>C&amp;onectar</translation>
    </message>
    <message>
        <source>Ctrl+O</source>
        <translation>Ctrl+O</translation>
    </message>
    <message>
        <source>Disconnect</source>
        <translation>Desconectar</translation>
    </message>
    <message>
        <source>Ctrl+D</source>
        <translation>Ctrl+D</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Configuración</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Salir</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Salir</translation>
    </message>
    <message>
        <source>Ctrl+C</source>
        <translation>Ctrl+C</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Acerca de</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Buscar</translation>
    </message>
    <message>
        <source>Shift+S</source>
        <translation>Shift+S</translation>
    </message>
    <message>
        <source>&amp;Reboot</source>
        <translation>&amp;Reiniciar</translation>
    </message>
    <message>
        <source>Reboot</source>
        <translation>Reiniciar</translation>
    </message>
    <message>
        <source>Ctrl+R</source>
        <translation>Ctrl+R</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Restablecer</translation>
    </message>
    <message>
        <source>&amp;Factory reset</source>
        <translation>Restablecer los valores de fábrica</translation>
    </message>
    <message>
        <source>Ctrl+F</source>
        <translation>Ctrl+F</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>Desconectado</translation>
    </message>
    <message>
        <source>Error occurred during reboot operation</source>
        <translation>Se ha producido un error al reiniciar</translation>
    </message>
    <message>
        <source>Error during reboot of Zelvar servo id:%1</source>
        <translation>Error al reiniciar el servo Zelvar con el ID %1</translation>
    </message>
    <message>
        <source>Zelvar servo id:%1 was rebooted successfully</source>
        <translation>El servo Zelvar con el ID %1 se ha reiniciado correctamente</translation>
    </message>
    <message>
        <source>Error occurred during factory reset operation</source>
        <translation>Se ha producido un error al restablecer los valores de fábrica</translation>
    </message>
    <message>
        <source>Error during factory reset of Zelvar servo id:%1</source>
        <translation>Error al restablecer los valores de fábrica del servo Zelvar con el ID %1</translation>
    </message>
    <message>
        <source>Factory reset of Zelvar servo id:%1 was successful</source>
        <translation>Se han restablecido los valores de fábrica del servo Zelvar con el ID %1</translation>
    </message>
    <message>
        <source>Polling interval (ms): </source>
        <translation>Intervalo de consulta (ms): </translation>
    </message>
    <message>
        <source>Servo address: </source>
        <translation>Dirección del servo: </translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Conectado</translation>
    </message>
    <message>
        <source>No answer from servo %1</source>
        <translation>El servo %1 no responde</translation>
    </message>
    <message>
        <source>The servo now listens at address %1 and %2 baud: disconnect and connect again</source>
        <translation>El servo escucha ahora en la dirección %1 a %2 baudios: desconecte y vuelva a conectar</translation>
    </message>
    <message>
        <source>Success</source>
        <translation>Operación correcta</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Más</translation>
    </message>
    <message>
        <source>Servo %1 refuses to be read</source>
        <translation>El servo %1 rechaza la lectura</translation>
    </message>
    <message>
        <source>&amp;Servo</source>
        <translation>&amp;Servo</translation>
    </message>
    <message>
        <source>&amp;Undo the last Apply</source>
        <translation>&amp;Deshacer el último Aplicar</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ver</translation>
    </message>
    <message>
        <source>&amp;Tool bar</source>
        <translation>&amp;Barra de herramientas</translation>
    </message>
    <message>
        <source>not undone: the servo has other values by now</source>
        <translation>no se ha deshecho: el servo tiene ya otros valores</translation>
    </message>
    <message>
        <source>the AX-12 is now servo %1 at %2 baud</source>
        <translation>el AX-12 es ahora el servo %1 a %2 baudios</translation>
    </message>
    <message>
        <source>Servo %1 did not answer at %2 baud on %3. Check its supply, the cable, its address and its baud rate; Search finds servos at other ones.</source>
        <translation>El servo %1 no respondió a %2 baudios en %3. Compruebe su alimentación, el cable, su dirección y su velocidad; la búsqueda encuentra servos con otras.</translation>
    </message>
    <message>
        <source>User &amp;guide</source>
        <translation>&amp;Guía del usuario</translation>
    </message>
    <message>
        <source>not written: no servo is connected</source>
        <translation>no se ha escrito: no hay ningún servo conectado</translation>
    </message>
</context>
<context>
    <name>MotorControl</name>
    <message>
        <source>In the mode Torque the servo has no position to hold.</source>
        <translation>En el modo Par, el servo no tiene ninguna posición que mantener.</translation>
    </message>
    <message>
        <source>In the mode Stepper a target is a distance to go, and no position to hold.</source>
        <translation>En el modo Paso a paso, un objetivo es una distancia y no una posición que mantener.</translation>
    </message>
    <message>
        <source>Stop &amp;motor</source>
        <translation>Parar el &amp;motor</translation>
    </message>
    <message>
        <source>&amp;Hold here</source>
        <translation>Ma&amp;ntener aquí</translation>
    </message>
    <message>
        <source>Stop &amp;all on this bus</source>
        <translation>Parar &amp;todos en este bus</translation>
    </message>
    <message>
        <source>Tells every servo on the bus, of both families, to switch its motor off. That frees all shafts. Only the connected servo&apos;s stop is proved.</source>
        <translation>Ordena a todos los servos del bus, de ambas familias, que apaguen su motor. Eso libera todos los ejes. Solo se comprueba la parada del servo conectado.</translation>
    </message>
    <message>
        <source>not applied, since the motor was stopped: %1</source>
        <translation>no aplicado, porque se paró el motor: %1</translation>
    </message>
    <message>
        <source>motor stopped</source>
        <translation>motor parado</translation>
    </message>
    <message>
        <source>motor stopped; the others on the bus were told, which proves nothing</source>
        <translation>motor parado; los demás del bus recibieron la orden, lo que no prueba nada</translation>
    </message>
    <message>
        <source>The servo was read after the stop: its motor is off.</source>
        <translation>Se leyó el servo después de la parada: su motor está apagado.</translation>
    </message>
    <message>
        <source>It is told to stop again and again until Disconnect.</source>
        <translation>Se le ordena parar una y otra vez hasta que usted desconecte.</translation>
    </message>
    <message>
        <source>&lt;h3&gt;The motor may still be on: cut its supply.&lt;/h3&gt;&lt;p&gt;No answer of the servo has shown that its motor is off.&lt;/p&gt;&lt;p&gt;%1&lt;/p&gt;</source>
        <translation>&lt;h3&gt;El motor puede seguir encendido: corte su alimentación.&lt;/h3&gt;&lt;p&gt;Ninguna respuesta del servo ha mostrado que su motor esté apagado.&lt;/p&gt;&lt;p&gt;%1&lt;/p&gt;</translation>
    </message>
    <message>
        <source>stop not proved: the motor may still be on</source>
        <translation>parada no comprobada: el motor puede seguir encendido</translation>
    </message>
    <message>
        <source>The motor may still be on</source>
        <translation>El motor puede seguir encendido</translation>
    </message>
    <message>
        <source>the motor may still be on</source>
        <translation>el motor puede seguir encendido</translation>
    </message>
    <message>
        <source>stopping the motor</source>
        <translation>parando el motor</translation>
    </message>
    <message>
        <source>the motor was left on</source>
        <translation>el motor se quedó encendido</translation>
    </message>
    <message>
        <source>the motor was left off</source>
        <translation>el motor se quedó apagado</translation>
    </message>
    <message>
        <source>motor on</source>
        <translation>motor encendido</translation>
    </message>
    <message>
        <source>motor off</source>
        <translation>motor apagado</translation>
    </message>
    <message>
        <source>motor not known</source>
        <translation>motor desconocido</translation>
    </message>
    <message>
        <source>Connect to a servo first.</source>
        <translation>Conecte primero un servo.</translation>
    </message>
    <message>
        <source>Only servos of the Zelvar family can be held.</source>
        <translation>Solo se pueden mantener los servos de la familia Zelvar.</translation>
    </message>
    <message>
        <source>The servo&apos;s operating mode is not known.</source>
        <translation>No se conoce el modo de operación del servo.</translation>
    </message>
    <message>
        <source>Makes the place where the servo is its target, or its target velocity 0. The motor stays on, and nothing falls.</source>
        <translation>Convierte el lugar donde está el servo en su objetivo, o su velocidad objetivo en 0. El motor sigue encendido y nada cae.</translation>
    </message>
    <message>
        <source>not applied, since the servo was to hold: %1</source>
        <translation>no aplicado, porque el servo debía mantenerse: %1</translation>
    </message>
    <message>
        <source>not held: the servo did not tell where it is</source>
        <translation>no mantenido: el servo no dijo dónde está</translation>
    </message>
    <message>
        <source>holding: %1</source>
        <translation>manteniendo: %1</translation>
    </message>
    <message>
        <source>not held: %1</source>
        <translation>no se mantiene: %1</translation>
    </message>
    <message>
        <source>not held: the servo does not answer</source>
        <translation>no se mantiene: el servo no responde</translation>
    </message>
    <message>
        <source>not held: the servo still has %1</source>
        <translation>no se mantiene: el servo sigue teniendo %1</translation>
    </message>
</context>
<context>
    <name>Plotting</name>
    <message>
        <source>&amp;Plot</source>
        <translation>&amp;Gráfica</translation>
    </message>
    <message>
        <source>&amp;Record to a file…</source>
        <translation>&amp;Grabar en un archivo…</translation>
    </message>
    <message>
        <source>Record &amp;with the last ten minutes…</source>
        <translation>Grabar &amp;con los últimos diez minutos…</translation>
    </message>
    <message>
        <source>Record all &amp;fields</source>
        <translation>Grabar &amp;todos los campos</translation>
    </message>
    <message>
        <source>All fields of the servo, or only those that the plot shows</source>
        <translation>Todos los campos del servo, o solo los que muestra la gráfica</translation>
    </message>
    <message>
        <source>Plot</source>
        <translation>Gráfica</translation>
    </message>
    <message>
        <source>Save what is seen</source>
        <translation>Guardar lo que se ve</translation>
    </message>
    <message>
        <source>Not saved</source>
        <translation>No se ha guardado</translation>
    </message>
    <message>
        <source>Record to a file</source>
        <translation>Grabar en un archivo</translation>
    </message>
    <message>
        <source>Not recorded</source>
        <translation>No se ha grabado</translation>
    </message>
    <message>
        <source>Recording stopped</source>
        <translation>Grabación detenida</translation>
    </message>
    <message>
        <source>The servo that is connected now has other fields.</source>
        <translation>El servo conectado ahora tiene otros campos.</translation>
    </message>
    <message>
        <source>recording %1 · %2 samples</source>
        <translation>grabación %1 · %2 muestras</translation>
    </message>
    <message>
        <source>Open a recording</source>
        <translation>Abrir una grabación</translation>
    </message>
    <message>
        <source>Not opened</source>
        <translation>No se ha abierto</translation>
    </message>
    <message>
        <source>Parameters not written</source>
        <translation>Parámetros no escritos</translation>
    </message>
    <message>
        <source>The plot cannot be shown, since a part of the program cannot be loaded. Installing the program again helps.</source>
        <translation>La gráfica no se puede mostrar porque una parte del programa no se puede cargar. Vuelva a instalar el programa.</translation>
    </message>
</context>
<context>
    <name>PortErrors</name>
    <message>
        <source>No serial port is chosen. Choose one in the settings.</source>
        <translation>No se ha elegido ningún puerto serie. Elija uno en la configuración.</translation>
    </message>
    <message>
        <source>The serial port %1 refuses the baud rate %2. Choose another baud rate in the settings.</source>
        <translation>El puerto serie %1 rechaza la velocidad de %2 baudios. Elija otra velocidad en la configuración.</translation>
    </message>
    <message>
        <source>The serial port %1 was not found. Check that the adapter is plugged in, or choose another port in the settings.</source>
        <translation>No se encuentra el puerto serie %1. Compruebe que el adaptador está enchufado o elija otro puerto en la configuración.</translation>
    </message>
    <message>
        <source>The serial port %1 is in use by another program. Close that program and connect again.</source>
        <translation>Otro programa está usando el puerto serie %1. Cierre ese programa y vuelva a conectar.</translation>
    </message>
    <message>
        <source>You have no permission to use the serial port %1. Add your user to the group &quot;%2&quot; and log in again.</source>
        <translation>No tiene permiso para usar el puerto serie %1. Añada su usuario al grupo «%2» y vuelva a iniciar sesión.</translation>
    </message>
    <message>
        <source>The serial port %1 could not be opened: %2. Choose another port in the settings.</source>
        <translation>No se ha podido abrir el puerto serie %1: %2. Elija otro puerto en la configuración.</translation>
    </message>
    <message>
        <source>The connection to the serial port %1 was lost. Check the adapter and its cable, then connect again.</source>
        <translation>Se ha perdido la conexión con el puerto serie %1. Compruebe el adaptador y su cable y vuelva a conectar.</translation>
    </message>
    <message>
        <source>Another program reads from the serial port %1 too, so answers go missing. Close that program and connect again.</source>
        <translation>Otro programa lee también del puerto serie %1, por lo que se pierden respuestas. Cierre ese programa y vuelva a conectar.</translation>
    </message>
    <message>
        <source>You have no permission to use the serial port %1. Install the udev rule 70-zelvar-servo-manager.rules, which comes with the program&apos;s package, and plug the adapter in again.</source>
        <translation>No tiene permiso para usar el puerto serie %1. Instale la regla de udev 70-zelvar-servo-manager.rules, que viene en el paquete del programa, y vuelva a conectar el adaptador.</translation>
    </message>
</context>
<context>
    <name>RegisterView</name>
    <message>
        <source>Non-volatile bank 1</source>
        <translation>No volátil, banco 1</translation>
    </message>
    <message>
        <source>Non-volatile bank 2</source>
        <translation>No volátil, banco 2</translation>
    </message>
    <message>
        <source>Volatile bank 1</source>
        <translation>Volátil, banco 1</translation>
    </message>
    <message>
        <source>Volatile bank 2</source>
        <translation>Volátil, banco 2</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Dirección</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Valor</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Descripción</translation>
    </message>
    <message>
        <source>Register fields</source>
        <translation>Registros</translation>
    </message>
    <message>
        <source>The program has no register table for this servo. The tables stay empty while it is connected.</source>
        <translation>El programa no tiene tabla de registros para este servo. Las tablas quedan vacías mientras esté conectado.</translation>
    </message>
</context>
<context>
    <name>ScanReport</name>
    <message>
        <source>Asked: ids %1 to %2 at %3 baud on %4.</source>
        <translation>Se preguntó a los ID del %1 al %2 a %3 baudios en %4.</translation>
    </message>
    <message>
        <source>At %1 baud, servos may need more than the %2 ms that each one is given and may have been missed. To make sure, choose the baud rate in the settings and connect to the servo&apos;s id.</source>
        <translation>A %1 baudios, un servo puede necesitar más de los %2 ms que se dan a cada uno y haber pasado inadvertido. Para asegurarse, elija la velocidad en la configuración y conecte con el ID del servo.</translation>
    </message>
    <message>
        <source>The search is over.</source>
        <translation>La búsqueda ha terminado.</translation>
    </message>
    <message>
        <source>The search was aborted after %1 of %2 baud rates.</source>
        <translation>La búsqueda se interrumpió tras %1 de %2 velocidades.</translation>
    </message>
    <message>
        <source>Servos found: %1.</source>
        <translation>Servos encontrados: %1.</translation>
    </message>
    <message>
        <source>No servo was asked.</source>
        <translation>No se preguntó a ningún servo.</translation>
    </message>
    <message>
        <source>No servo answered.</source>
        <translation>Ningún servo ha respondido.</translation>
    </message>
</context>
<context>
    <name>SearchDialog</name>
    <message>
        <source>Device search</source>
        <translation>Búsqueda de dispositivos</translation>
    </message>
    <message>
        <source>Devices</source>
        <translation>Dispositivos</translation>
    </message>
    <message>
        <source>Baud rate</source>
        <translation>Velocidad</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modelo</translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation>Parámetros</translation>
    </message>
    <message>
        <source>Serial port:</source>
        <translation>Puerto:</translation>
    </message>
    <message>
        <source>ID search range</source>
        <translation>Intervalo de ID</translation>
    </message>
    <message>
        <source>Lower:</source>
        <translation>De:</translation>
    </message>
    <message>
        <source>Upper: </source>
        <translation>A: </translation>
    </message>
    <message>
        <source>Baud rates</source>
        <translation>Velocidades (baudios)</translation>
    </message>
    <message>
        <source>Select/Unselect</source>
        <translation>Todas/ninguna</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>Buscar</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Detener</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Elegir</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>N/A</source>
        <translation>n/d</translation>
    </message>
    <message>
        <source>Result of the search: %1</source>
        <translation>Resultado de la búsqueda: %1</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Settings</source>
        <translation>Configuración</translation>
    </message>
    <message>
        <source>Connection</source>
        <translation>Conexión</translation>
    </message>
    <message>
        <source>Select Serial Port</source>
        <translation>Puerto serie</translation>
    </message>
    <message>
        <source>Description:</source>
        <translation>Descripción:</translation>
    </message>
    <message>
        <source>Manufacturer:</source>
        <translation>Fabricante:</translation>
    </message>
    <message>
        <source>Location:</source>
        <translation>Ubicación:</translation>
    </message>
    <message>
        <source>Vendor ID:</source>
        <translation>ID de fabricante:</translation>
    </message>
    <message>
        <source>Product ID:</source>
        <translation>ID de producto:</translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation>Parámetros</translation>
    </message>
    <message>
        <source>BaudRate:</source>
        <translation>Velocidad:</translation>
    </message>
    <message>
        <source>Data bits:</source>
        <translation>Bits de datos:</translation>
    </message>
    <message>
        <source>Parity:</source>
        <translation>Paridad:</translation>
    </message>
    <message>
        <source>Stop bits:</source>
        <translation>Bits de parada:</translation>
    </message>
    <message>
        <source>Units</source>
        <translation>Unidades</translation>
    </message>
    <message>
        <source>Angular velocity</source>
        <translation>Velocidad angular</translation>
    </message>
    <message>
        <source>rad/s</source>
        <translation>rad/s</translation>
    </message>
    <message>
        <source>rpm</source>
        <translation>rpm</translation>
    </message>
    <message>
        <source>Angular acceleration</source>
        <translation>Aceleración angular</translation>
    </message>
    <message>
        <source>rad/s2</source>
        <translation>rad/s2</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>Ángulo</translation>
    </message>
    <message>
        <source>Radians</source>
        <translation>Radianes</translation>
    </message>
    <message>
        <source>Degrees</source>
        <translation>Grados</translation>
    </message>
    <message>
        <source>Torque</source>
        <translation>Par</translation>
    </message>
    <message>
        <source>Nm</source>
        <translation>Nm</translation>
    </message>
    <message>
        <source>kg-cm</source>
        <translation>kg-cm</translation>
    </message>
    <message>
        <source>Voltage</source>
        <translation>Tensión</translation>
    </message>
    <message>
        <source>Volts</source>
        <translation>Voltios</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>Corriente</translation>
    </message>
    <message>
        <source>Amps</source>
        <translation>Amperios</translation>
    </message>
    <message>
        <source>mA</source>
        <translation>mA</translation>
    </message>
    <message>
        <source>Temperature</source>
        <translation>Temperatura</translation>
    </message>
    <message>
        <source>°C</source>
        <translation>°C</translation>
    </message>
    <message>
        <source>°F</source>
        <translation>°F</translation>
    </message>
    <message>
        <source>Servo data</source>
        <translation>Datos del servo</translation>
    </message>
    <message>
        <source>Hex</source>
        <translation>Hexadecimal</translation>
    </message>
    <message>
        <source>Decimal</source>
        <translation>Decimal</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Ninguna</translation>
    </message>
    <message>
        <source>Even</source>
        <translation>Par</translation>
    </message>
    <message>
        <source>Odd</source>
        <translation>Impar</translation>
    </message>
    <message>
        <source>Mark</source>
        <translation>Marca</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Espacio</translation>
    </message>
    <message>
        <source>N/A</source>
        <translation>n/d</translation>
    </message>
    <message>
        <source>Description: %1</source>
        <translation>Descripción: %1</translation>
    </message>
    <message>
        <source>Manufacturer: %1</source>
        <translation>Fabricante: %1</translation>
    </message>
    <message>
        <source>Location: %1</source>
        <translation>Ubicación: %1</translation>
    </message>
    <message>
        <source>Vendor Identifier: %1</source>
        <translation>ID de fabricante: %1</translation>
    </message>
    <message>
        <source>Product Identifier: %1</source>
        <translation>ID de producto: %1</translation>
    </message>
</context>
<context>
    <name>SwitchOnMark</name>
    <message>
        <source>&amp;Set the target to the position first</source>
        <translation>&amp;Poner antes el objetivo en la posición</translation>
    </message>
    <message>
        <source>The servo will move by %1 as soon as this is applied.</source>
        <translation>El servo se moverá %1 en cuanto esto se aplique.</translation>
    </message>
</context>
<context>
    <name>UiGroupHelper</name>
    <message>
        <source>Apply</source>
        <translation>Aplicar</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Editar</translation>
    </message>
    <message>
        <source>The servo listens at another id or baud rate by now: disconnect and connect again.</source>
        <translation>El servo escucha ya en otro ID u otra velocidad: desconecte y vuelva a conectar.</translation>
    </message>
    <message>
        <source>The motor is on, and the servo takes non-volatile parameters only while it is off: untick &quot;Enable motor&quot; and apply that first.</source>
        <translation>El motor está encendido y el servo solo acepta parámetros no volátiles mientras está apagado: desmarque antes «Activar motor» y aplíquelo.</translation>
    </message>
</context>
<context>
    <name>UnitsHelper</name>
    <message>
        <source>radians</source>
        <translation>radianes</translation>
    </message>
    <message>
        <source>degrees</source>
        <translation>grados</translation>
    </message>
</context>
<context>
    <name>ZelvarCheckBox</name>
    <message>
        <source>on</source>
        <translation>encendido</translation>
    </message>
    <message>
        <source>off</source>
        <translation>apagado</translation>
    </message>
</context>
<context>
    <name>ZelvarGroupToolButton</name>
    <message>
        <source>No servo is connected.</source>
        <translation>No hay ningún servo conectado.</translation>
    </message>
    <message>
        <source>The servo has not answered yet.</source>
        <translation>El servo aún no ha respondido.</translation>
    </message>
    <message>
        <source>The parameters of this model cannot be edited.</source>
        <translation>Los parámetros de este modelo no se pueden editar.</translation>
    </message>
    <message>
        <source>The first values of the servo have not come yet.</source>
        <translation>Aún no han llegado los primeros valores del servo.</translation>
    </message>
    <message>
        <source>Nothing has been changed yet.</source>
        <translation>Todavía no se ha cambiado nada.</translation>
    </message>
</context>
<context>
    <name>ZelvarSerialPortInterface</name>
    <message>
        <source>Simulated servo bus</source>
        <translation>Bus de servos simulado</translation>
    </message>
</context>
<context>
    <name>ZelvarV1</name>
    <message>
        <source>Firmware version</source>
        <translation>Versión de firmware</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Baud rate</source>
        <translation>Velocidad</translation>
    </message>
    <message>
        <source>Acknowledge response time</source>
        <translation>Tiempo de respuesta</translation>
    </message>
    <message>
        <source>Operating mode</source>
        <translation>Modo de operación</translation>
    </message>
    <message>
        <source>Upper temperature limit</source>
        <translation>Límite superior de temperatura</translation>
    </message>
    <message>
        <source>Lower input voltage limit</source>
        <translation>Mín. tensión de entrada</translation>
    </message>
    <message>
        <source>Upper input voltage limit</source>
        <translation>Máx. tensión de entrada</translation>
    </message>
    <message>
        <source>Input mode</source>
        <translation>Modo de entrada</translation>
    </message>
    <message>
        <source>Control enable</source>
        <translation>Control activado</translation>
    </message>
    <message>
        <source>Pending shadow instruction</source>
        <translation>Instrucción pendiente</translation>
    </message>
    <message>
        <source>Actual voltage</source>
        <translation>Tensión actual</translation>
    </message>
    <message>
        <source>Actual temperature</source>
        <translation>Temperatura actual</translation>
    </message>
    <message>
        <source>Moving</source>
        <translation>En movimiento</translation>
    </message>
    <message>
        <source>Hardware error status</source>
        <translation>Errores de hardware</translation>
    </message>
    <message>
        <source>Debug 1 (u8)</source>
        <translation>Depuración 1 (u8)</translation>
    </message>
    <message>
        <source>Debug 2 (u8)</source>
        <translation>Depuración 2 (u8)</translation>
    </message>
    <message>
        <source>%1 (byte %2)</source>
        <translation>%1 (byte %2)</translation>
    </message>
    <message>
        <source>%1 (lower)</source>
        <translation>%1 (byte bajo)</translation>
    </message>
    <message>
        <source>%1 (upper)</source>
        <translation>%1 (byte alto)</translation>
    </message>
    <message>
        <source>Model number</source>
        <translation>Número de modelo</translation>
    </message>
    <message>
        <source>CW angle limit</source>
        <translation>Horario, límite de ángulo</translation>
    </message>
    <message>
        <source>CCW angle limit</source>
        <translation>Antihorario, límite de ángulo</translation>
    </message>
    <message>
        <source>Torque limit</source>
        <translation>Par, límite</translation>
    </message>
    <message>
        <source>Angular velocity limit</source>
        <translation>Velocidad angular, límite</translation>
    </message>
    <message>
        <source>Acceleration limit</source>
        <translation>Aceleración, límite</translation>
    </message>
    <message>
        <source>Home position offset</source>
        <translation>Desfase del origen</translation>
    </message>
    <message>
        <source>Moving threshold</source>
        <translation>Umbral de movimiento</translation>
    </message>
    <message>
        <source>Default position proportional gain</source>
        <translation>Pos. proporcional, ganancia predet.</translation>
    </message>
    <message>
        <source>Default velocity feedforward gain</source>
        <translation>Vel. prealimentación, predet.</translation>
    </message>
    <message>
        <source>Default current feedforward gain</source>
        <translation>Corr. prealimentación, predet.</translation>
    </message>
    <message>
        <source>Default velocity integral gain</source>
        <translation>Vel. integral, ganancia predet.</translation>
    </message>
    <message>
        <source>Default velocity proportional gain</source>
        <translation>Vel. proporcional, ganancia predet.</translation>
    </message>
    <message>
        <source>Default angular velocity profile</source>
        <translation>Vel. angular, perfil predet.</translation>
    </message>
    <message>
        <source>Default acceleration profile</source>
        <translation>Acel., perfil predet.</translation>
    </message>
    <message>
        <source>Position proportional gain</source>
        <translation>Pos. proporcional, ganancia</translation>
    </message>
    <message>
        <source>Velocity feedforward gain</source>
        <translation>Vel. prealimentación</translation>
    </message>
    <message>
        <source>Current feedforward gain</source>
        <translation>Corr. prealimentación</translation>
    </message>
    <message>
        <source>Velocity integral gain</source>
        <translation>Vel. integral, ganancia</translation>
    </message>
    <message>
        <source>Velocity proportional gain</source>
        <translation>Vel. proporcional, ganancia</translation>
    </message>
    <message>
        <source>Angular velocity profile</source>
        <translation>Vel. angular, perfil</translation>
    </message>
    <message>
        <source>Acceleration profile</source>
        <translation>Acel., perfil</translation>
    </message>
    <message>
        <source>Target position</source>
        <translation>Posición objetivo</translation>
    </message>
    <message>
        <source>Target angular velocity</source>
        <translation>Velocidad angular objetivo</translation>
    </message>
    <message>
        <source>Target torque</source>
        <translation>Par objetivo</translation>
    </message>
    <message>
        <source>Actual position</source>
        <translation>Posición actual</translation>
    </message>
    <message>
        <source>Actual angular velocity</source>
        <translation>Velocidad angular actual</translation>
    </message>
    <message>
        <source>Actual torque</source>
        <translation>Par actual</translation>
    </message>
    <message>
        <source>Actual phase current</source>
        <translation>Corriente de fase actual</translation>
    </message>
    <message>
        <source>Debug 3</source>
        <translation>Depur. 3</translation>
    </message>
    <message>
        <source>Debug 4</source>
        <translation>Depur. 4</translation>
    </message>
</context>
<context>
    <name>chart::Charts</name>
    <message>
        <source>%1 is of another version of the program.</source>
        <translation>%1 es de otra versión del programa.</translation>
    </message>
</context>
<context>
    <name>dialogs::ComparisonDialog</name>
    <message>
        <source>Only &amp;differences</source>
        <translation>Solo las &amp;diferencias</translation>
    </message>
    <message>
        <source>Switch the &amp;motor off first, which frees the shaft: what it carries may fall</source>
        <translation>Apagar antes el &amp;motor, lo que libera el eje: lo que sostiene puede caer</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Restaurar</translation>
    </message>
    <message>
        <source>Compare</source>
        <translation>Comparar</translation>
    </message>
    <message>
        <source>%1, compared with %2</source>
        <translation>%1, comparado con %2</translation>
    </message>
    <message>
        <source>Fields</source>
        <translation>Campos</translation>
    </message>
    <message>
        <source>&amp;Copy as text</source>
        <translation>&amp;Copiar como texto</translation>
    </message>
    <message>
        <source>&amp;Restore</source>
        <translation>&amp;Restaurar</translation>
    </message>
    <message>
        <source>&amp;Restore…</source>
        <translation>&amp;Restaurar…</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Detener</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>%1 fields compared, %2 equal, %3 different</source>
        <translation>%1 campos comparados, %2 iguales, %3 diferentes</translation>
    </message>
    <message>
        <source>%1; %2 ticked</source>
        <translation>%1; %2 marcados</translation>
    </message>
    <message>
        <source>Writing and reading back …</source>
        <translation>Escribiendo y releyendo …</translation>
    </message>
    <message>
        <source>%1 fields compared, %2 equal, %3 written, %4 refused, %5 left out</source>
        <translation>%1 campos comparados, %2 iguales, %3 escritos, %4 rechazados, %5 omitidos</translation>
    </message>
    <message>
        <source>Restored and read back: %1.</source>
        <translation>Restaurado y releído: %1.</translation>
    </message>
    <message>
        <source>Not all is as it was to be: %1.</source>
        <translation>No todo está como debía: %1.</translation>
    </message>
    <message>
        <source>What is ticked is written. Id, baud rate and home position offset belong to one servo: they are left out unless you tick them.</source>
        <translation>Lo marcado se escribe. Id, velocidad en baudios y desfase del origen son de un solo servo: se omiten si no los marca.</translation>
    </message>
    <message>
        <source>… and %1 more, which the tip of this text tells</source>
        <translation>… y %1 más; vea el texto emergente</translation>
    </message>
    <message>
        <source>Keep the tuned gains</source>
        <translation>Conservar las ganancias ajustadas</translation>
    </message>
    <message>
        <source>&amp;Keep</source>
        <translation>Con&amp;servar</translation>
    </message>
    <message>
        <source>Kept and read back: %1.</source>
        <translation>Conservado y releído: %1.</translation>
    </message>
    <message>
        <source>What is ticked is written, id and baud rate last. The home position offset belongs to one servo: it is left out unless you tick it.</source>
        <translation>Lo marcado se escribe, id y velocidad en baudios al final. El desfase del origen es de un solo servo: se omite si no lo marca.</translation>
    </message>
    <message>
        <source>Replace a servo</source>
        <translation>Reemplazar un servo</translation>
    </message>
</context>
<context>
    <name>dialogs::ComparisonModel</name>
    <message>
        <source>%1, register %2</source>
        <translation>%1, registro %2</translation>
    </message>
    <message>
        <source>Field</source>
        <translation>Campo</translation>
    </message>
    <message>
        <source>The servo had</source>
        <translation>El servo tenía</translation>
    </message>
    <message>
        <source>The servo has</source>
        <translation>El servo tiene</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Resultado</translation>
    </message>
    <message>
        <source>%1 (raw %2)</source>
        <translation>%1 (valor bruto %2)</translation>
    </message>
    <message>
        <source>left out</source>
        <translation>omitido</translation>
    </message>
    <message>
        <source>refused (%1); it has %2</source>
        <translation>rechazado (%1); tiene %2</translation>
    </message>
    <message>
        <source>not written, since not all before it was taken</source>
        <translation>no escrito, porque no todo lo anterior fue aceptado</translation>
    </message>
    <message>
        <source>not kept; it has %1</source>
        <translation>no conservado; tiene %1</translation>
    </message>
    <message>
        <source>written</source>
        <translation>escrito</translation>
    </message>
</context>
<context>
    <name>dialogs::HistoryDialog</name>
    <message>
        <source>&amp;Compare with the servo</source>
        <translation>&amp;Comparar con el servo</translation>
    </message>
    <message>
        <source>&amp;Restore…</source>
        <translation>&amp;Restaurar…</translation>
    </message>
    <message>
        <source>&amp;Save as…</source>
        <translation>&amp;Guardar como…</translation>
    </message>
    <message>
        <source>History</source>
        <translation>Historial</translation>
    </message>
    <message>
        <source>Kept parameters</source>
        <translation>Parámetros conservados</translation>
    </message>
    <message>
        <source>Re&amp;name</source>
        <translation>Cambiar el &amp;nombre</translation>
    </message>
    <message>
        <source>&amp;Pin or unpin</source>
        <translation>&amp;Fijar o soltar</translation>
    </message>
    <message>
        <source>Ser&amp;vo:</source>
        <translation>Ser&amp;vo:</translation>
    </message>
    <message>
        <source>servo %1 · model %2 · last kept %3</source>
        <translation>servo %1 · modelo %2 · último %3</translation>
    </message>
    <message>
        <source>servo %1 · model %2</source>
        <translation>servo %1 · modelo %2</translation>
    </message>
    <message>
        <source>No servo is connected.</source>
        <translation>No hay ningún servo conectado.</translation>
    </message>
    <message>
        <source>The connected servo is of another family.</source>
        <translation>El servo conectado es de otra familia.</translation>
    </message>
    <message>
        <source>No entry that can be read is selected.</source>
        <translation>No hay seleccionada ninguna entrada que se pueda leer.</translation>
    </message>
    <message>
        <source>Nothing is kept yet. What a servo has is kept at each Connect and after each Apply, when it has changed.</source>
        <translation>Todavía no se ha conservado nada. Lo que tiene un servo se conserva cada vez que se conecta y después de cada aplicación, cuando ha cambiado.</translation>
    </message>
    <message>
        <source>Restore a &amp;file…</source>
        <translation>Restaurar un &amp;archivo…</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Restaurar</translation>
    </message>
    <message>
        <source>Choose what the connected servo is to get back: from what is kept of it, or a file.</source>
        <translation>Elija qué debe recuperar el servo conectado: de lo guardado de él, o un archivo.</translation>
    </message>
    <message>
        <source>Replace a servo</source>
        <translation>Reemplazar un servo</translation>
    </message>
    <message>
        <source>Choose the servo that is missing and what it had. The connected servo gets it, id and baud rate last.</source>
        <translation>Elija el servo que falta y lo que tenía. El servo conectado lo recibe, id y velocidad en baudios al final.</translation>
    </message>
</context>
<context>
    <name>dialogs::HistoryModel</name>
    <message>
        <source>Time</source>
        <translation>Hora</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Pinned</source>
        <translation>Fijado</translation>
    </message>
    <message>
        <source>Changed</source>
        <translation>Cambios</translation>
    </message>
    <message>
        <source>%1 %2 → %3</source>
        <comment>field, value before, value</comment>
        <translation>%1 %2 → %3</translation>
    </message>
    <message>
        <source>cannot be read: %1</source>
        <translation>no se puede leer: %1</translation>
    </message>
    <message>
        <source>first kept</source>
        <translation>primera entrada</translation>
    </message>
    <message>
        <source>pinned</source>
        <translation>fijado</translation>
    </message>
    <message>
        <source>not pinned</source>
        <translation>no fijado</translation>
    </message>
    <message>
        <source>Press F2, or click twice, to give it a name.</source>
        <translation>Pulse F2 o haga clic dos veces para darle un nombre.</translation>
    </message>
    <message>
        <source>The latest %1 entries of a servo stay; a pinned one stays however many follow.</source>
        <translation>Se quedan las últimas %1 entradas de un servo; una fijada se queda por muchas que la sigan.</translation>
    </message>
</context>
<context>
    <name>guide::GuideWindow</name>
    <message>
        <source>User guide</source>
        <translation>Guía del usuario</translation>
    </message>
    <message>
        <source>This page of the user guide is missing: %1. Install the program anew.</source>
        <translation>Falta esta página de la guía del usuario: %1. Vuelva a instalar el programa.</translation>
    </message>
</context>
<context>
    <name>plot::PlotPane</name>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausa</translation>
    </message>
    <message>
        <source>Holds what is seen; samples are still kept</source>
        <translation>Detiene lo que se ve; las muestras se siguen guardando</translation>
    </message>
    <message>
        <source>Live</source>
        <translation>En vivo</translation>
    </message>
    <message>
        <source>Back to the newest sample</source>
        <translation>Volver a la muestra más reciente</translation>
    </message>
    <message>
        <source>Fields</source>
        <translation>Campos</translation>
    </message>
    <message>
        <source>Chooses what is shown</source>
        <translation>Elige lo que se muestra</translation>
    </message>
    <message>
        <source>Close recording</source>
        <translation>Cerrar la grabación</translation>
    </message>
    <message>
        <source>Shows the connected servo again</source>
        <translation>Vuelve a mostrar el servo conectado</translation>
    </message>
    <message>
        <source>Time span</source>
        <translation>Intervalo de tiempo</translation>
    </message>
    <message>
        <source>Time span; the wheel zooms, and dragging goes back in time</source>
        <translation>Intervalo de tiempo; la rueda amplía, y arrastrar retrocede en el tiempo</translation>
    </message>
    <message>
        <source>&amp;Never</source>
        <translation>&amp;Nunca</translation>
    </message>
    <message>
        <source>At each &amp;Apply</source>
        <translation>En cada &amp;aplicación</translation>
    </message>
    <message>
        <source>At a &amp;hardware error</source>
        <translation>Con un error de &amp;hardware</translation>
    </message>
    <message>
        <source>Hold</source>
        <translation>Detener</translation>
    </message>
    <message>
        <source>Holds what is seen when something happens, with the time before it</source>
        <translation>Detiene lo que se ve cuando ocurre algo, con el tiempo anterior</translation>
    </message>
    <message>
        <source>Picture as &amp;PNG…</source>
        <translation>Imagen como &amp;PNG…</translation>
    </message>
    <message>
        <source>Picture as &amp;SVG…</source>
        <translation>Imagen como &amp;SVG…</translation>
    </message>
    <message>
        <source>Values as &amp;CSV…</source>
        <translation>Valores como &amp;CSV…</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Archivo</translation>
    </message>
    <message>
        <source>Saves what is seen, or opens a recording</source>
        <translation>Guarda lo que se ve o abre una grabación</translation>
    </message>
    <message>
        <source>&amp;Open a recording…</source>
        <translation>&amp;Abrir una grabación…</translation>
    </message>
    <message>
        <source>&amp;State</source>
        <translation>&amp;Estado</translation>
    </message>
    <message>
        <source>&amp;Volatile parameters</source>
        <translation>Parámetros &amp;volátiles</translation>
    </message>
    <message>
        <source>&amp;Non-volatile parameters</source>
        <translation>Parámetros &amp;no volátiles</translation>
    </message>
    <message>
        <source>Close %1</source>
        <translation>Cerrar %1</translation>
    </message>
    <message>
        <source>Plot</source>
        <translation>Gráfica</translation>
    </message>
</context>
<context>
    <name>plot::RangeDialog</name>
    <message>
        <source>Fixed range</source>
        <translation>Intervalo fijo</translation>
    </message>
    <message>
        <source>&amp;From:</source>
        <translation>&amp;Desde:</translation>
    </message>
    <message>
        <source>&amp;To:</source>
        <translation>&amp;Hasta:</translation>
    </message>
</context>
<context>
    <name>plot::StepRow</name>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>Target</source>
        <translation>Objetivo</translation>
    </message>
    <message>
        <source>The target that was applied</source>
        <translation>El objetivo que se aplicó</translation>
    </message>
    <message>
        <source>Rise</source>
        <translation>Subida</translation>
    </message>
    <message>
        <source>Rise time: from 10 % to 90 % of the way to the target</source>
        <translation>Tiempo de subida: del 10 % al 90 % del camino al objetivo</translation>
    </message>
    <message>
        <source>Overshoot</source>
        <translation>Sobreimpulso</translation>
    </message>
    <message>
        <source>How far the value went beyond the target, in percent of the way</source>
        <translation>Cuánto pasó el valor del objetivo, en tanto por ciento del camino</translation>
    </message>
    <message>
        <source>Settling</source>
        <translation>Asentamiento</translation>
    </message>
    <message>
        <source>Settling time: from the Apply until the value stays within 2 % of the way around the target</source>
        <translation>Tiempo de asentamiento: desde la aplicación hasta que el valor se queda a menos del 2 % del camino del objetivo</translation>
    </message>
    <message>
        <source>Off by</source>
        <translation>Resto</translation>
    </message>
    <message>
        <source>What was left to the target at the last sample, ten seconds after the Apply at most</source>
        <translation>Lo que faltaba hasta el objetivo en la última muestra, diez segundos después de la aplicación como mucho</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>&amp;Write these gains back</source>
        <translation>&amp;Restaurar ganancias</translation>
    </message>
    <message>
        <source>This step</source>
        <translation>Este escalón</translation>
    </message>
    <message>
        <source>Step before</source>
        <translation>Escalón anterior</translation>
    </message>
    <message>
        <source>Gives the servo the gains again that it had at the step before</source>
        <translation>Devuelve al servo las ganancias que tenía en el escalón anterior</translation>
    </message>
    <message>
        <source>The grey curve, moved and scaled to this step</source>
        <translation>La curva gris, desplazada y escalada a este escalón</translation>
    </message>
    <message>
        <source>The gains are those of the step before</source>
        <translation>Las ganancias son las del escalón anterior</translation>
    </message>
    <message>
        <source>Gains: %1</source>
        <translation>Ganancias: %1</translation>
    </message>
</context>
<context>
    <name>plot::Strip</name>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
</context>
<context>
    <name>plot::StripArea</name>
    <message>
        <source>Curves</source>
        <translation>Curvas</translation>
    </message>
    <message>
        <source>at %1 s</source>
        <translation>en %1 s</translation>
    </message>
    <message>
        <source>cursor</source>
        <translation>cursor</translation>
    </message>
    <message>
        <source>reference</source>
        <translation>referencia</translation>
    </message>
    <message>
        <source>difference</source>
        <translation>diferencia</translation>
    </message>
    <message>
        <source>time [s]</source>
        <translation>tiempo [s]</translation>
    </message>
    <message>
        <source>not applied: %1</source>
        <translation>no aplicado: %1</translation>
    </message>
    <message>
        <source>&amp;Copy values</source>
        <translation>&amp;Copiar los valores</translation>
    </message>
    <message>
        <source>C&amp;lear the cursors</source>
        <translation>&amp;Quitar los cursores</translation>
    </message>
    <message>
        <source>&amp;Automatic range</source>
        <translation>Intervalo &amp;automático</translation>
    </message>
    <message>
        <source>&amp;Fixed range…</source>
        <translation>Intervalo &amp;fijo…</translation>
    </message>
</context>
<context>
    <name>profile</name>
    <message>
        <source>The names and pins in %1 cannot be read: %2</source>
        <translation>No se pueden leer los nombres y las marcas de %1: %2</translation>
    </message>
    <message>
        <source>Another program is using the history.</source>
        <translation>Otro programa está usando el historial.</translation>
    </message>
    <message>
        <source>Nothing can be written to %1: is the disk full, or the folder write-protected?</source>
        <translation>No se puede escribir nada en %1: ¿está lleno el disco o protegida la carpeta contra escritura?</translation>
    </message>
    <message>
        <source>The folder %1 cannot be made.</source>
        <translation>No se puede crear la carpeta %1.</translation>
    </message>
    <message>
        <source>This entry is not there any more.</source>
        <translation>Esta entrada ya no está.</translation>
    </message>
    <message>
        <source>line 1: it is too large to be a file of servo parameters</source>
        <translation>línea 1: es demasiado grande para ser un archivo de parámetros de un servo</translation>
    </message>
    <message>
        <source>&quot;%1&quot; means nothing here; there are: %2</source>
        <translation>«%1» no significa nada aquí; hay: %2</translation>
    </message>
    <message>
        <source>it is no file of servo parameters, which says &quot;format&quot;: &quot;%1&quot;</source>
        <translation>no es un archivo de parámetros de un servo, en el que pone &quot;format&quot;: &quot;%1&quot;</translation>
    </message>
    <message>
        <source>&quot;version&quot; has to be a number from 1 on</source>
        <translation>«version» tiene que ser un número a partir de 1</translation>
    </message>
    <message>
        <source>it has the version %1, which a later program has written; this one knows %2</source>
        <translation>tiene la versión %1, escrita por un programa más nuevo; este conoce la %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has to be a number from 0 to %2</source>
        <translation>«%1» tiene que ser un número de 0 a %2</translation>
    </message>
    <message>
        <source>&quot;partial&quot; has to be true or false</source>
        <translation>«partial» tiene que ser true o false</translation>
    </message>
    <message>
        <source>a servo of model %1 is a %2, not what this says</source>
        <translation>un servo del modelo %1 es un %2, no lo que pone aquí</translation>
    </message>
    <message>
        <source>&quot;time&quot; has to be like 2026-11-22T08:30:00Z</source>
        <translation>«time» tiene que ser como 2026-11-22T08:30:00Z</translation>
    </message>
    <message>
        <source>a partial file has no bytes; remove them</source>
        <translation>un archivo parcial no tiene bytes; quítelos</translation>
    </message>
    <message>
        <source>the registers&apos; bytes are missing; a file of some fields says &quot;partial&quot;: true</source>
        <translation>faltan los bytes de los registros; en un archivo de algunos campos pone &quot;partial&quot;: true</translation>
    </message>
    <message>
        <source>a servo of model %1 has %2 bytes from register %3 on</source>
        <translation>un servo del modelo %1 tiene %2 bytes a partir del registro %3</translation>
    </message>
    <message>
        <source>the bytes do not fit their CRC, so one of the two is damaged; edit values in &quot;fields&quot; only</source>
        <translation>los bytes no concuerdan con su CRC, así que uno de los dos está dañado; cambie valores solo en «fields»</translation>
    </message>
    <message>
        <source>&quot;fields&quot; has to be an object</source>
        <translation>«fields» tiene que ser un objeto</translation>
    </message>
    <message>
        <source>a %1 keeps no field &quot;%2&quot;</source>
        <translation>un %1 no guarda ningún campo «%2»</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has to be an object</source>
        <translation>«%1» tiene que ser un objeto</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is missing; a file of some fields says &quot;partial&quot;: true</source>
        <translation>falta «%1»; en un archivo de algunos campos pone &quot;partial&quot;: true</translation>
    </message>
    <message>
        <source>&quot;raw&quot; has to be a whole number</source>
        <translation>«raw» tiene que ser un número entero</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has neither &quot;raw&quot; nor &quot;value&quot;</source>
        <translation>«%1» no tiene ni «raw» ni «value»</translation>
    </message>
    <message>
        <source>&quot;raw&quot; and &quot;value&quot; disagree, and neither is what the servo had; remove one</source>
        <translation>«raw» y «value» se contradicen y ninguno es lo que tenía el servo; quite uno</translation>
    </message>
    <message>
        <source>%1 is outside what &quot;%2&quot; takes, raw values from %3 to %4</source>
        <translation>%1 queda fuera de lo que admite «%2», valores brutos de %3 a %4</translation>
    </message>
    <message>
        <source>%1 is no value of &quot;%2&quot;</source>
        <translation>%1 no es un valor de «%2»</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has no unit</source>
        <translation>«%1» no tiene unidad</translation>
    </message>
    <message>
        <source>&quot;%1&quot; needs a unit: %2</source>
        <translation>«%1» necesita una unidad: %2</translation>
    </message>
    <message>
        <source> or </source>
        <translation> o </translation>
    </message>
    <message>
        <source>&quot;%1&quot; was edited: %2 is taken, the servo had %3</source>
        <translation>se ha cambiado «%1»: vale %2, el servo tenía %3</translation>
    </message>
    <message>
        <source>line %1: %2</source>
        <translation>línea %1: %2</translation>
    </message>
    <message>
        <source>this name is there twice, or written with escapes</source>
        <translation>este nombre está dos veces o está escrito con secuencias de escape</translation>
    </message>
    <message>
        <source>it is no JSON object: %1</source>
        <translation>no es un objeto JSON: %1</translation>
    </message>
</context>
<context>
    <name>recording</name>
    <message>
        <source>This is no recording: its first line does not have the titles of one.</source>
        <translation>No es una grabación: la primera línea no tiene los títulos de una.</translation>
    </message>
    <message>
        <source>Line %1 is not what a recording has.</source>
        <translation>La línea %1 no es de una grabación.</translation>
    </message>
    <message>
        <source>The titles name fields that no servo known here has.</source>
        <translation>Los títulos nombran campos que no tiene ningún servo conocido aquí.</translation>
    </message>
    <message>
        <source>The file is not there any more.</source>
        <translation>El archivo ya no está.</translation>
    </message>
</context>
<context>
    <name>storage</name>
    <message>
        <source>It is no regular file.</source>
        <translation>No es un archivo normal.</translation>
    </message>
</context>
</TS>
